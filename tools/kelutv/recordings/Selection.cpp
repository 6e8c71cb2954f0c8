#include "tools/kelutv/recordings/Selection.h"

#include "tools/kelutv/conversion/CallText.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/Patterns.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace kelutv::tool {

namespace {

/** Since the start of a section; what is before it is negative. */
double timeOf(const std::string& option, const std::string& text) {
    char* end = nullptr;
    const double time = std::strtod(text.c_str(), &end);
    if (text.empty() || *end != '\0' || !std::isfinite(time)) {
        throw UsageError(option + " takes seconds since the start of the recording, not '" + wire::shown(text) + '\'');
    }
    return time;
}

} // namespace

void addSelection(const Subcommand& command, SelectionOptions& options) {
    command.option(
        "--from", [&options](const std::string& text) { options.from = timeOf("--from", text); }, "SECONDS",
        "Nothing from before this time, counted from the start");
    command.option(
        "--until", [&options](const std::string& text) { options.until = timeOf("--until", text); }, "SECONDS",
        "Nothing from behind this time");
    command.option("--process", options.processes, std::numeric_limits<std::int32_t>::max(), "PID",
                   "Only what happened in this process; may be given several times");
    command.option("--command", options.commands, "REQUEST",
                   "Only requests with such a name or number; may be given several times");
}

Selection::Selection(const SelectionOptions& options)
    : mOptions(options), mPatterns(patternsOf("--command", options.commands)) {
    if (options.from && options.until && *options.from > *options.until) {
        throw UsageError("--from: nothing is both behind it and before --until");
    }
}

bool Selection::has(const recording::Line& line) const {
    return recording::timeOf(line) == nullptr || (isInTime(line) && isOfProcess(line) && isOfCommand(line));
}

bool Selection::isInTime(const recording::Line& line) const {
    const double time = static_cast<double>(*recording::timeOf(line)) / kNanosecondsOfSecond;
    return (!mOptions.from || time >= *mOptions.from) && (!mOptions.until || time <= *mOptions.until);
}

bool Selection::isOfProcess(const recording::Line& line) const {
    const recording::Moment* const moment = recording::momentOf(line);
    return mOptions.processes.empty() || moment == nullptr ||
           std::find(mOptions.processes.begin(), mOptions.processes.end(),
                     static_cast<std::uint32_t>(moment->process)) != mOptions.processes.end();
}

bool Selection::isOfCommand(const recording::Line& line) const {
    if (mPatterns.empty() || recording::momentOf(line) == nullptr) {
        return true;
    }
    const auto* const transaction = std::get_if<recording::Transaction>(&line.content);
    return transaction != nullptr && matchesAny(mPatterns, decodeRequest(transaction->request).request);
}

} // namespace kelutv::tool
