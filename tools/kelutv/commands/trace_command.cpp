#include "tools/kelutv/commands/Commands.h"
#include "tools/kelutv/output/Streams.h"
#include "tools/kelutv/parser/Amounts.h"
#include "tools/kelutv/recordings/Statistics.h"
#include "tools/kelutv/trace/TraceLog.h"
#include "tools/kelutv/trace/TracedRun.h"

#include <memory>

namespace kelutv::tool {

namespace {

struct TraceOptions {
    TraceLog::Options log;
    bool summary = false;
    std::vector<std::string> words;
};

int writeEach(const TraceOptions& options, TraceLog& log) {
    return runTraced(options.words, ownDescriptors(), false,
                     {[&log](const TracedTransaction& transaction) { log.write(transaction); },
                      [&log](std::uint32_t count) { log.writeLeftOut(count); }});
}

int writeSummary(const TraceOptions& options, TraceLog& log) {
    Statistics statistics;
    const auto take = [&](const TracedTransaction& traced) {
        if (traced.kind == trace::RecordKind::Event) {
            statistics.addEvent(traced.begin);
        } else if (log.takes(traced)) {
            statistics.add(traced);
        }
    };
    TraceListener listener{take, [&](std::uint32_t count) { statistics.addLeftOut(count); }};
    listener.patience = std::chrono::milliseconds::zero(); // What is measured is not to wait for this tool.
    const int exit = runTraced(options.words, ownDescriptors(), true, listener);
    log.writeSummary(statistics.lines(), statistics.document());
    return exit;
}

Exit trace(const TraceOptions& options) {
    TraceLog log(options.log);
    const int exit = options.summary ? writeSummary(options, log) : writeEach(options, log);
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
    command.flag("--summary", options->summary, "At the end, how often each command came and how long it took");
    command.requiredWords("PROGRAM", options->words, "The program and its arguments");
    command.action([options, &context] {
        options->log.json = context.output.json;
        context.exit = trace(*options);
    });
}

} // namespace kelutv::tool
