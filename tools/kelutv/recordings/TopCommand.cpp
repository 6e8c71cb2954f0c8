#include "tools/kelutv/recordings/TopCommand.h"

#include "tools/kelutv/output/StandardOutput.h"
#include "tools/kelutv/output/Streams.h"
#include "tools/kelutv/recordings/Statistics.h"
#include "tools/kelutv/trace/TracedRun.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

namespace kelutv::tool {

namespace {

/** To the upper left corner, and everything behind that away. */
constexpr char kClear[] = "\033[H\033[J";
constexpr double kShortest = 0.1;
constexpr double kLongest = 86400;

struct TopOptions {
    double interval = 1;
    std::vector<std::string> words;
};

/** Of the terminal at standard output; all 0 where that is none. */
winsize terminalSize() {
    winsize size{};
    const int fd = ::fileno(ownOutput());
    return ::isatty(fd) == 1 && ::ioctl(fd, TIOCGWINSZ, &size) == 0 ? size : winsize{};
}

/** As many letters of it as one line of the terminal has room for. */
std::string cutTo(std::size_t columns, const std::string& text) {
    std::size_t letters = 0;
    const auto isBeyond = [&](char byte) {
        const bool continues = (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
        letters += continues ? 0 : 1;
        return letters > columns;
    };
    return {text.begin(), std::find_if(text.begin(), text.end(), isBeyond)};
}

void print(const Statistics& statistics, const Output& output) {
    const winsize size = terminalSize();
    const std::size_t most = size.ws_row;
    std::vector<std::string> lines = statistics.lines(most / 2);
    if (most > 1 && lines.size() >= most) {
        lines.resize(most - 1);
    }
    if (most != 0 && !output.json) {
        writeData(kClear);
    }
    for (const std::string& line : lines) {
        output.line(size.ws_col != 0 ? cutTo(size.ws_col, line) : line);
    }
    if (most == 0) {
        output.line("");
    }
    output.document(statistics.document());
}

Exit top(const TopOptions& options, const Output& output) {
    Statistics statistics;
    const auto take = [&statistics](const TracedTransaction& traced) {
        if (traced.kind == trace::RecordKind::Event) {
            statistics.addEvent(traced.begin);
        } else {
            statistics.add(traced);
        }
    };
    const auto nowhere = std::shared_ptr<std::FILE>(std::fopen("/dev/null", "r+e"), std::fclose);
    const int fd = ::fileno(nowhere.get());
    const int exit =
        runTraced(options.words, {{STDIN_FILENO, fd}, {STDOUT_FILENO, fd}, {STDERR_FILENO, fd}}, true,
                  {take, [&](std::uint32_t count) { statistics.addLeftOut(count); }, [&] { print(statistics, output); },
                   std::chrono::milliseconds(static_cast<std::int64_t>(options.interval * 1000)),
                   std::chrono::milliseconds::zero()});
    print(statistics, output);
    return static_cast<Exit>(exit);
}

} // namespace

void addTopCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<TopOptions>();
    const Subcommand command(
        program, "top",
        "Run a program and keep showing how often it sends what, and how long that takes\n\n"
        "The program has no input, and its output goes nowhere; its exit code is the tool's, too.\n\n"
        "Examples:\n"
        "kelutv top -- ./your-application\n"
        "kelutv top --interval 5 -- ./your-application");
    command.option("--interval", options->interval, kShortest, kLongest, "SECONDS", "Show it anew so often; else 1");
    command.requiredWords("PROGRAM", options->words, "The program and its arguments");
    command.action([options, &context] { context.exit = top(*options, context.output); });
}

} // namespace kelutv::tool
