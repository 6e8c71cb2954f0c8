#include "tools/kelutv/recordings/RecordCommand.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Streams.h"
#include "tools/kelutv/recordings/BackgroundRecording.h"
#include "tools/kelutv/recordings/DecodedForm.h"
#include "tools/kelutv/recordings/RecordingSession.h"
#include "tools/kelutv/recordings/Sizes.h"
#include "tools/kelutv/trace/TracedProgram.h"
#include "tools/process/SignalWatch.h"

#include <initializer_list>
#include <memory>
#include <optional>
#include <utility>

namespace kelutv::tool {

namespace {

struct CommandOptions {
    RecordOptions recording;
    bool inBackground = false;
    std::vector<std::string> words;
};

int waitForEnd(TracedProgram& program, process::SignalWatch& signals, RecordingSession& session) {
    std::optional<int> exit;
    while (!(exit = program.exitCode())) {
        session.wait(signals.fd(), std::chrono::milliseconds(-1));
        signals.handOn([&program](int signal) { program.kill(signal); });
    }
    return *exit;
}

Exit record(const CommandOptions& options, const Output& output) {
    TracedProgram::requireRunnable(options.words);
    RecordingFile file(options.recording.file, options.recording.most);
    if (!file.lock()) {
        throw ToolError(Exit::Failure, "another program records into the file");
    }
    file.replace();
    auto pipe = std::make_unique<TracePipe>(wishesOf(options.recording));
    std::optional<process::SignalWatch> signals(std::in_place,
                                                std::initializer_list<int>{SIGCHLD, SIGINT, SIGTERM, SIGHUP, SIGQUIT});
    std::signal(SIGCHLD, SIG_DFL); // Else the program's end may not be reported.
    std::signal(SIGXFSZ, SIG_IGN); // What cannot be written is told of by the write.
    RecordingSession session(*pipe, file, beginSection(file), options.recording);
    TracedProgram program(options.words, trace::kRecordVariable + ('=' + pipe->path()), ownDescriptors(),
                          signals->maskBefore());
    const int exit = waitForEnd(program, *signals, session);
    session.finish("program");
    // Signals end this process from here on, and nothing is left behind then.
    pipe.reset();
    signals.reset();
    session.join();
    session.report(options.recording, output);
    return static_cast<Exit>(exit);
}

Exit run(const CommandOptions& options, const Output& output) {
    if (options.recording.events) {
        recordedEvents(); // While what is wrong with them can be told.
    }
    if (options.inBackground) {
        if (!options.words.empty()) {
            throw UsageError("--background takes no PROGRAM: it records those that are started with KELUTV_RECORD");
        }
        recordInBackground(options.recording);
        return Exit::Success;
    }
    if (options.words.empty()) {
        throw UsageError("PROGRAM is missing: the program to record, behind --");
    }
    return record(options, output);
}

} // namespace

void addRecordCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<CommandOptions>();
    const Subcommand command(
        program, "record",
        "Run a program and record what it sends to the television\n\n"
        "Every request and reply goes into a file, byte for byte. The program is not changed, keeps its input and\n"
        "output, and never waits for the recording. Its exit code is the tool's, too. Programs that are started with\n"
        "the trace library preloaded and KELUTV_RECORD=FILE record themselves.\n\n"
        "Examples:\n"
        "kelutv record -- ./your-application --verbose\n"
        "kelutv record --output field.jsonl --events --max-size 10M -- ./your-application");
    command.option("-o,--output", options->recording.file, "FILE", "Record into this file; else recording.jsonl");
    command.flag("--events", options->recording.events, "Record the events that the program is given, too");
    command.option(
        "--for", [options](const std::string& text) { options->recording.time = secondsOf("--for", text); }, "SECONDS",
        "End the recording after this time; the program runs on");
    command.option(
        "--max-size", [options](const std::string& text) { options->recording.most = sizeOf("--max-size", text); },
        "SIZE", "End the recording before the file has more bytes; K, M and G stand behind larger numbers");
    command.flag("--background", options->inBackground,
                 "Record the programs that are started with KELUTV_RECORD, adding to the file");
    command.words("PROGRAM", options->words, "The program and its arguments");
    command.action([options, &context] { context.exit = run(*options, context.output); });
}

} // namespace kelutv::tool
