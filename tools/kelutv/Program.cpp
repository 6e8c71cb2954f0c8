#include "tools/kelutv/Program.h"

#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/comparison/DiffCommand.h"
#include "tools/kelutv/compliance/ComplianceCommand.h"
#include "tools/kelutv/doctor/DoctorCommand.h"
#include "tools/kelutv/newservice/NewServiceCommand.h"
#include "tools/kelutv/recordings/RecordCommand.h"
#include "tools/kelutv/recordings/RecordingCommand.h"
#include "tools/kelutv/recordings/TopCommand.h"
#include "tools/kelutv/replay/ReplayCommand.h"
#include "tools/kelutv/shell/LineEditor.h"
#include "tools/kelutv/snapshot/SnapshotCommand.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace kelutv::tool {

namespace {

constexpr char kExitCodes[] = "Exit codes:\n"
                              "  0  done\n"
                              "  1  a file, a pipe or another program did not do what it had to\n"
                              "  2  the command line is wrong; nothing was sent\n"
                              "  3  there is no service, or it is gone\n"
                              "  4  the service or the library refused the operation\n"
                              "  5  the time was over before what was waited for came";
constexpr char kMoreHelp[] = "Every command has --json, --quiet, --color and --timeout, too: kelutv help.";

Color colorNamed(const std::string& when) {
    static const std::map<std::string, Color> colors{
        {"auto", Color::Automatic}, {"always", Color::Always}, {"never", Color::Never}};
    const auto found = colors.find(when);
    if (found == colors.end()) {
        throw UsageError("--color takes auto, always or never, not '" + wire::shown(when) + '\'');
    }
    return found->second;
}

void addGeneralOptions(const Subcommand& program, Context& context) {
    Output& output = context.output;
    program.flag("--json", output.json, "Print data and messages as JSON, one document a line");
    program.flag("-q,--quiet", output.quiet, "Print data and errors, no other messages");
    program.option(
        "--color", [&output](const std::string& when) { output.color = colorNamed(when); }, "WHEN",
        "Colour on standard output: auto, always or never");
    program.option(
        "-t,--timeout", [&context](const std::string& text) { context.time = secondsOf("--timeout", text); }, "SECONDS",
        "Give up when it takes longer; without it, as long as KELUTV_TIMEOUT says");
}

void addWholeRecordingCommand(const Command& program, Context& context) {
    addRecordingCommand(program, context, {addRecordingDiff, addRecordingReplay});
}

struct NamedCommand {
    const char* name;
    void (*add)(const Command& program, Context& context);
    /** It needs the other commands, too: it tells of them or runs them. */
    bool looksAtAll = false;
};

/** In the order of the help. */
constexpr NamedCommand kCommands[] = {
    {"status", addStatusCommand},
    {"sources", addSourcesCommand},
    {"cec", addCecCommand},
    {"power", addPowerCommand},
    {"get", addGetCommand},
    {"set", addSetCommand},
    {"list", addListCommand},
    {"describe", addDescribeCommand},
    {"call", addCallCommand},
    {"encode", addEncodeCommand},
    {"decode", addDecodeCommand},
    {"trace", addTraceCommand},
    {"top", addTopCommand},
    {"record", addRecordCommand},
    {"recording", addWholeRecordingCommand},
    {"monitor", addMonitorCommand},
    {"wait", addWaitCommand},
    {"doctor", addDoctorCommand},
    {"compliance", addComplianceCommand},
    {"snapshot", addSnapshotCommand},
    {"eep", addEepCommand},
    {"sim", addSimCommand},
    {"new-service", addNewServiceCommand},
    {"repl", addReplCommand, true},
    {"help", addHelpCommand, true},
    {"complete", addCompleteCommand},
};

/** Adds the one that the first word names, since to describe them takes time, or all. */
void addCommands(const Command& program, Context& context, const std::vector<std::string>& words) {
    const auto* const named =
        std::find_if(std::begin(kCommands), std::end(kCommands),
                     [&words](const NamedCommand& each) { return !words.empty() && words.front() == each.name; });
    if (named != std::end(kCommands) && !named->looksAtAll) {
        named->add(program, context);
        return;
    }
    for (const NamedCommand& each : kCommands) {
        each.add(program, context);
    }
}

} // namespace

Parser makeProgram(Context& context, const std::vector<std::string>& words) {
    Parser parser("kelutv",
                  "Reads, changes and watches the television.\n\nExamples:\n"
                  "kelutv status\n"
                  "kelutv set volume 35\n"
                  "kelutv call audio.setVolume speaker 35\n"
                  "kelutv help set",
                  "kelutv " KELUTV_VERSION " (" + lineEditingText() + ')', kMoreHelp);
    const Subcommand program(parser.program());
    addCommands(program, context, words);
    addGeneralOptions(program, context);
    program.footer(kExitCodes);
    return parser;
}

} // namespace kelutv::tool
