#include "tools/kelutv/Program.h"

#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/doctor/DoctorCommand.h"
#include "tools/kelutv/shell/LineEditor.h"
#include "wire/text/Shown.h"

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

void addCommands(const Command& program, Context& context) {
    addStatusCommand(program, context);
    addSourcesCommand(program, context);
    addCecCommand(program, context);
    addPowerCommand(program, context);
    addGetCommand(program, context);
    addSetCommand(program, context);
    addListCommand(program, context);
    addDescribeCommand(program, context);
    addCallCommand(program, context);
    addEncodeCommand(program, context);
    addDecodeCommand(program, context);
    addTraceCommand(program, context);
    addMonitorCommand(program, context);
    addWaitCommand(program, context);
    addDoctorCommand(program, context);
    addEepCommand(program, context);
    addSimCommand(program, context);
    addReplCommand(program, context);
    addHelpCommand(program, context);
    addCompleteCommand(program, context);
}

} // namespace

Parser makeProgram(Context& context) {
    Parser parser("kelutv",
                  "Reads, changes and watches the television.\n\nExamples:\n"
                  "kelutv status\n"
                  "kelutv set volume 35\n"
                  "kelutv call audio.setVolume speaker 35\n"
                  "kelutv help set",
                  "kelutv " KELUTV_VERSION " (" + lineEditingText() + ')', kMoreHelp);
    const Subcommand program(parser.program());
    addCommands(program, context);
    addGeneralOptions(program, context);
    program.footer(kExitCodes);
    return parser;
}

} // namespace kelutv::tool
