#include "tools/kelutv/comparison/DiffCommand.h"

#include "tools/kelutv/comparison/RecordingDifference.h"
#include "tools/kelutv/text/Lists.h"

#include <memory>

namespace kelutv::tool {

namespace {

constexpr double kLeastFactor = 1;
constexpr double kMostFactor = 1e9;

struct DiffOptions {
    ComparisonOrder order;
    double factor = 0;
};

using Options = std::shared_ptr<DiffOptions>;

/** `A:3 B:5 `. */
std::string placesText(const RecordingDifference& difference) {
    const auto text = [](const char* name, const std::optional<RecordedPlace>& place) {
        return place ? name + (':' + std::to_string(place->line)) + ' ' : std::string();
    };
    return text("A", difference.first) + text("B", difference.second);
}

std::string lineOf(const RecordingDifference& difference, const Output& output) {
    const RecordedPlace& place = difference.first ? *difference.first : *difference.second;
    return placesText(difference) + output.styled(Style::Name, difference.kind) + ' ' + textOf(*place.happening) +
           (difference.values.empty() ? "" : ": " + textOf(difference.values));
}

Json documentOf(const std::optional<RecordedPlace>& place) {
    return place ? Json{{"line", place->line},
                        {"process", place->process},
                        {"thread", place->thread},
                        {"text", textOf(*place->happening)}}
                 : Json();
}

void show(const RecordingDifference& difference, const Output& output) {
    output.line(lineOf(difference, output));
    if (output.json) {
        output.document({{"difference", difference.kind},
                         {"first", documentOf(difference.first)},
                         {"second", documentOf(difference.second)},
                         {"values", documentOf(difference.values)}});
    }
}

std::string leftOutText(const char* name, std::int64_t count) {
    return count == 0 ? "" : "; " + std::to_string(count) + " left out of " + name;
}

Exit compare(const DiffOptions& options, const Output& output) {
    if (options.order.first == "-" && options.order.second == "-") {
        throw UsageError("only one of the two recordings can come from standard input");
    }
    const ComparisonSum sum = compareRecordings(
        options.order, [&output](const RecordingDifference& difference) { show(difference, output); });
    output.message("kelutv: " + counted(sum.differences, "difference") + " in " + std::to_string(sum.compared) +
                   " calls and events" + leftOutText("A", sum.leftOutOfFirst) + leftOutText("B", sum.leftOutOfSecond));
    output.document({{"differences", sum.differences},
                     {"compared", sum.compared},
                     {"leftOutOfFirst", sum.leftOutOfFirst},
                     {"leftOutOfSecond", sum.leftOutOfSecond}});
    return sum.differences == 0 ? Exit::Success : Exit::Failure;
}

} // namespace

void addRecordingDiff(const Subcommand& recording, Context& context) {
    const Options options = std::make_shared<DiffOptions>();
    const Subcommand command(
        recording, "diff",
        "Show what two recordings do not have alike\n"
        "Compares what happened in each thread, not when, nor in which process. Ends with 1\n"
        "when there is a difference, with 2 when one cannot be read.\n\n"
        "Examples:\n"
        "kelutv recording diff before.jsonl after.jsonl\n"
        "kelutv recording diff before.jsonl after.jsonl --ignore 'CMD_SYSTEM_*' --ignore any:value\n"
        "kelutv recording diff before.jsonl after.jsonl --durations 10");
    command.required("A", options->order.first, "The one recording, or - for standard input");
    command.required("B", options->order.second, "The other one");
    command.option("--ignore", options->order.ignored, "REQUEST|EVENT",
                   "Leave out what has such a name or number, or with :NAME behind it only values of that name; "
                   "may be given again");
    command.option("--durations", options->factor, kLeastFactor, kMostFactor, "FACTOR",
                   "Show calls, too, that took more than so many times as long, and 1 ms more");
    command.action([options, &context, command] {
        if (command.isGiven("--durations")) {
            options->order.factor = options->factor;
        }
        context.exit = compare(*options, context.output);
    });
}

} // namespace kelutv::tool
