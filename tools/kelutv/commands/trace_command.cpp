#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/parser/Amounts.h"
#include "tools/kelutv/trace/TraceLog.h"
#include "tools/kelutv/trace/TracePipe.h"
#include "tools/kelutv/trace/TracedProgram.h"
#include "tools/process/SignalWatch.h"

#include <poll.h>

#include <memory>

namespace kelutv::tool {

namespace {

struct TraceOptions {
    TraceLog::Options log;
    std::vector<std::string> words;
};

void writeAll(TracePipe& pipe, TraceLog& log) {
    for (const TracedTransaction& transaction : pipe.take()) {
        log.write(transaction);
    }
    if (const std::uint32_t count = pipe.takeLeftOut(); count > 0) {
        log.writeLeftOut(count);
    }
}

int waitForEnd(TracedProgram& program, process::SignalWatch& signals, TracePipe& pipe, TraceLog& log) {
    pollfd watched[] = {{pipe.fd(), POLLIN, 0}, {signals.fd(), POLLIN, 0}};
    std::optional<int> exit;
    while (!(exit = program.exitCode())) {
        ::poll(watched, 2, -1);
        signals.handOn([&program](int signal) { program.kill(signal); });
        writeAll(pipe, log);
    }
    writeAll(pipe, log);
    return *exit;
}

constexpr std::chrono::milliseconds kPatience{200};

Exit trace(const TraceOptions& options) {
    TraceLog log(options.log);
    TracePipe pipe({{trace::RecordKind::Transaction}, kPatience});
    process::SignalWatch signals{SIGCHLD, SIGINT, SIGTERM, SIGHUP, SIGQUIT};
    std::signal(SIGCHLD, SIG_DFL); // Else the program's end may not be reported.
    TracedProgram program(options.words, trace::kTraceVariable + ('=' + pipe.path()), signals.maskBefore());
    const int exit = waitForEnd(program, signals, pipe, log);
    log.finish();
    return static_cast<Exit>(exit);
}

} // namespace

void addTraceCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<TraceOptions>();
    const Subcommand command(
        program, "trace",
        "Run a program and show what it sends to the television\n\n"
        "One line for each command with its answer and the time it took, on standard error or in a file. The\n"
        "program is not changed and keeps its input and output. Its exit code is the tool's, too.\n\n"
        "Examples:\n"
        "kelutv trace -- ./your-application --verbose\n"
        "kelutv trace --filter 'CMD_AUDIO_*' --output audio.trace -- ./your-application");
    command.option("-o,--output", options->log.file, "FILE", "Write the trace to this file");
    command.option("-f,--filter", options->log.filters, "REQUEST",
                   "Only requests with such a name or number; may be given several times");
    command.option(
        "-n,--count", [options](const std::string& text) { options->log.count = countOf("--count", text); }, "N",
        "Show only this many; the program runs on");
    command.requiredWords("PROGRAM", options->words, "The program and its arguments");
    command.action([options, &context] {
        options->log.json = context.output.json;
        context.exit = trace(*options);
    });
}

} // namespace kelutv::tool
