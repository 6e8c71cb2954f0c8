#include "tools/kelutv/recordings/Statistics.h"

#include "tools/kelutv/conversion/CallText.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/trace/TransactionText.h"
#include "wire/text/Describe.h"

#include <algorithm>
#include <cstdio>

namespace kelutv::tool {

namespace {

constexpr std::size_t kMostSlow = 10;
constexpr std::size_t kMostFailures = 1000;
constexpr double kMicroseconds = 1e3;
constexpr std::int64_t kRadix = 10;
constexpr std::int64_t kThreeDigits = 1000;

double microseconds(std::int64_t nanoseconds) { return static_cast<double>(nanoseconds) / kMicroseconds; }

/** Whether a value behind any result word is a value: then -1 is one, too. */
bool isValue(const wire::Request& request) {
    const std::vector<const wire::Function*> senders = sendersOf(request);
    return std::any_of(senders.begin(), senders.end(),
                       [](const wire::Function* sender) { return sender->statusIsValue; });
}

bool hasFailed(const wire::Request& request, const TracedTransaction& transaction) {
    if (transaction.status != 0) {
        return true;
    }
    const wire::Operation& operation = operationFor(request);
    const wire::ReplyReading reading = decodeReply(operation, transaction.reply);
    if (!reading.hasResult || operation.shape != wire::Shape::Status) {
        return !reading.hasResult || reading.reply.result != 0;
    }
    return reading.reply.result < 0 && !isValue(request);
}

/** To three digits. */
std::int64_t rounded(std::int64_t number) {
    std::int64_t unit = 1;
    while (number / unit >= kThreeDigits) {
        unit *= kRadix;
    }
    return number / unit * unit;
}

} // namespace

void Statistics::add(const TracedTransaction& transaction) {
    const DecodedRequest decoded = decodeRequest(transaction.request);
    Command& command = mCommands[nameOf(decoded.request)];
    ++command.count;
    ++command.durations[rounded(transaction.duration.count())];
    command.greatest = std::max<std::int64_t>(command.greatest, transaction.duration.count());
    const bool isSlow = mSlowest.size() < kMostSlow || mSlowest.back().duration < transaction.duration.count();
    const bool failed = hasFailed(decoded.request, transaction);
    if (isSlow) {
        keepSlow(transaction.duration.count(), lineOf(transaction, decoded));
    }
    if (failed) {
        ++command.failures;
        const std::string line = lineOf(transaction, decoded);
        const std::string text = line.substr(0, line.rfind(" <"));
        if (mFailures.size() < kMostFailures || mFailures.count(text) != 0) {
            ++mFailures[text];
        }
    }
    noteTime(transaction.begin);
}

void Statistics::addEvent(std::chrono::nanoseconds time) {
    ++mEvents;
    noteTime(time);
}

void Statistics::beginSection() {
    mTime = time();
    mFirst = std::chrono::nanoseconds::max();
    mLast = std::chrono::nanoseconds::min();
}

std::chrono::duration<double> Statistics::time() const {
    return mTime + (mLast > mFirst ? mLast - mFirst : std::chrono::nanoseconds::zero());
}

void Statistics::noteTime(std::chrono::nanoseconds time) {
    mFirst = std::min(mFirst, time);
    mLast = std::max(mLast, time);
}

void Statistics::keepSlow(std::int64_t duration, const std::string& text) {
    const auto place = std::upper_bound(mSlowest.begin(), mSlowest.end(), duration,
                                        [](std::int64_t wanted, const Call& call) { return wanted > call.duration; });
    mSlowest.insert(place, {duration, text});
    if (mSlowest.size() > kMostSlow) {
        mSlowest.pop_back();
    }
}

double Statistics::eventsPerSecond() const {
    const double seconds = time().count();
    return seconds > 0 ? static_cast<double>(mEvents) / seconds : 0;
}

/** What so many of a hundred calls do not exceed. */
std::int64_t Statistics::percentile(const Command& command, std::size_t percent) {
    const std::size_t wanted = (command.count * percent + 99) / 100;
    std::size_t seen = 0;
    for (const auto& [duration, count] : command.durations) {
        seen += count;
        if (seen >= wanted) {
            return duration;
        }
    }
    return command.greatest;
}

std::vector<Statistics::Row> Statistics::rows() const {
    std::vector<Row> rows;
    for (const auto& [name, command] : mCommands) {
        rows.push_back({name, command.count, command.failures, percentile(command, 50), percentile(command, 99),
                        command.greatest});
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Row& left, const Row& right) { return left.count > right.count; });
    return rows;
}

std::vector<std::string> Statistics::lines(std::size_t mostRows) const {
    std::vector<std::string> lines{"   calls failures   p50 us   p99 us   max us  command"};
    char text[96];
    for (const Row& row : rows()) {
        if (mostRows != 0 && lines.size() > mostRows) {
            break;
        }
        std::snprintf(text, sizeof(text), "%8zu %8zu %8.0f %8.0f %8.0f  ", row.count, row.failures,
                      microseconds(row.median), microseconds(row.most99), microseconds(row.greatest));
        lines.push_back(text + row.name);
    }
    lines.emplace_back("slowest:");
    for (const Call& call : mSlowest) {
        lines.push_back("  " + call.text);
    }
    if (!mFailures.empty()) {
        lines.emplace_back("failures:");
    }
    for (const auto& [call, count] : mFailures) {
        lines.push_back("  " + std::to_string(count) + " x " + call);
    }
    std::snprintf(text, sizeof(text), "events: %zu, %.3g a second", mEvents, eventsPerSecond());
    lines.emplace_back(text);
    if (mLeftOut != 0) {
        lines.push_back("left out: " + std::to_string(mLeftOut));
    }
    return lines;
}

Json Statistics::document() const {
    Json commands = Json::array();
    for (const Row& row : rows()) {
        commands.add({{"command", row.name},
                      {"calls", row.count},
                      {"failures", row.failures},
                      {"p50", static_cast<double>(row.median) / kNanosecondsOfSecond},
                      {"p99", static_cast<double>(row.most99) / kNanosecondsOfSecond},
                      {"max", static_cast<double>(row.greatest) / kNanosecondsOfSecond}});
    }
    Json slowest = Json::array();
    for (const Call& call : mSlowest) {
        slowest.add({{"call", call.text}, {"duration", static_cast<double>(call.duration) / kNanosecondsOfSecond}});
    }
    Json failures = Json::array();
    for (const auto& [call, count] : mFailures) {
        failures.add({{"call", call}, {"count", count}});
    }
    return {{"commands", commands},
            {"slowest", slowest},
            {"failures", failures},
            {"events", mEvents},
            {"eventsPerSecond", eventsPerSecond()},
            {"leftOut", mLeftOut}};
}

} // namespace kelutv::tool
