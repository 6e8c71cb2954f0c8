#include "tools/kelutv/conversion/CallText.h"
#include "tools/kelutv/conversion/Converter.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/text/Hex.h"

#include "recording/ObservedState.h"
#include "wire/events/Payload.h"
#include "wire/text/Quote.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace kelutv::tool {

namespace {

/** How long behind a change the event that tells of it may come. */
constexpr std::int64_t kEcho = 1000000000;
/** What takes longer than this is a delay of the service. */
constexpr std::int64_t kDelay = 100000000;
/** Sections begin no later than this, however many there are. */
constexpr std::int64_t kMostBegin = std::int64_t{1} << 61;
constexpr std::int64_t kMillisecond = 1000000;

std::string textOf(const wire::Value& value) {
    if (const auto* const text = std::get_if<std::string>(&value)) {
        return wire::inQuotes(*text);
    }
    if (const auto* const real = std::get_if<double>(&value)) {
        char digits[32];
        std::snprintf(digits, sizeof(digits), "%.17g", *real);
        return digits;
    }
    return std::to_string(std::get<std::int32_t>(value));
}

std::string textOf(const wire::Values& values, const char* separator) {
    std::string text;
    for (const wire::Value& value : values) {
        text += (text.empty() ? "" : separator) + textOf(value);
    }
    return text;
}

class Scenario : public Converter {
public:
    explicit Scenario(Sink sink) : mSink(std::move(sink)) {}

    void add(const recording::Line& line) override {
        if (std::holds_alternative<recording::Header>(line.content)) {
            endSection();
        } else if (const auto* const transaction = std::get_if<recording::Transaction>(&line.content)) {
            add(*transaction);
        } else if (const auto* const event = std::get_if<recording::Event>(&line.content)) {
            add(*event);
        } else if (const auto* const loss = std::get_if<recording::Loss>(&line.content)) {
            addStep(loss->moment.time, "# ", "the service was gone");
        }
    }

    void finish() override {
        endSection();
        mSink("# What a television did that was recorded, with nobody asking for it.\n" + mFaults + mText);
    }

private:
    struct Step {
        std::int64_t time;
        std::string mark;
        std::string line;
        /** Of an event. */
        std::optional<std::string> payload;
    };
    /** A change of which the television tells by itself, in this time. */
    struct Change {
        std::int64_t from;
        std::int64_t until;
    };
    struct Known {
        wire::Values values;
        std::int64_t time;
    };

    void addStep(std::int64_t time, const std::string& mark, const std::string& line,
                 const std::optional<std::string>& payload = std::nullopt) {
        mSteps.push_back({std::max<std::int64_t>(time, 0), mark, line, payload});
    }

    /** Behind `joinChanges`. */
    bool isTold(const Step& step) const {
        const auto changes = step.payload ? mChanges.find(*step.payload) : mChanges.end();
        if (changes == mChanges.end()) {
            return false;
        }
        const auto next = std::upper_bound(changes->second.begin(), changes->second.end(), step.time,
                                           [](std::int64_t time, const Change& change) { return time < change.from; });
        return next != changes->second.begin() && step.time <= std::prev(next)->until;
    }

    /** Those of one payload that touch each other become one, so that they can be looked for by their beginning. */
    void joinChanges() {
        for (auto& [payload, changes] : mChanges) {
            std::sort(changes.begin(), changes.end(),
                      [](const Change& left, const Change& right) { return left.from < right.from; });
            std::vector<Change> spans;
            for (const Change& change : changes) {
                if (spans.empty() || spans.back().until < change.from) {
                    spans.push_back(change);
                } else {
                    spans.back().until = std::max(spans.back().until, change.until);
                }
            }
            changes = std::move(spans);
        }
    }

    /** The times of the next one begin behind this one's last; what the television is stays. */
    void endSection() {
        joinChanges();
        std::int64_t last = 0;
        for (const Step& step : mSteps) {
            char time[48];
            std::snprintf(time, sizeof(time), "at %.3fs ",
                          static_cast<double>(mBegin + step.time) / kNanosecondsOfSecond);
            mText += (isTold(step) ? "# told by itself: " : step.mark) + time + step.line + '\n';
            last = std::max(last, step.time);
        }
        mBegin = std::min(mBegin + last, kMostBegin);
        mSteps.clear();
        mChanges.clear();
        for (auto& [state, known] : mStates) {
            known.time = 0;
        }
    }

    void add(const recording::Transaction& transaction) {
        const wire::Request request = decodeRequest(transaction.request).request;
        addFault(request, transaction);
        const auto state = recording::observedState(request, transaction.reply);
        if (!state) {
            return;
        }
        const std::int64_t begin = transaction.moment.time;
        const auto known = mStates.find({state->key, state->indexes});
        const bool isChanged = known != mStates.end() && known->second.values != state->values;
        if (state->isSet || isChanged) {
            const std::int64_t from = state->isSet ? begin : known->second.time;
            mChanges[wire::payloadOf(joined(*state))].push_back({from, begin + transaction.duration + kEcho});
        }
        if (isChanged && !state->isSet) {
            addStep(begin, "",
                    std::string("set ") + state->key->name +
                        (state->indexes.empty() ? "" : '[' + textOf(state->indexes, ", ") + ']') + " = " +
                        textOf(state->values, ", "));
        }
        mStates[{state->key, state->indexes}] = {state->values, begin};
    }

    static wire::Values joined(const recording::ObservedState& state) {
        wire::Values all = state.indexes;
        all.insert(all.end(), state.values.begin(), state.values.end());
        return all;
    }

    /** What an answer was besides right and quick. */
    void addFault(const wire::Request& request, const recording::Transaction& transaction) {
        if (request.command == nullptr) {
            return;
        }
        const std::string fault = "fault " + nameOf(request) + " nth " + std::to_string(++mCounts[nameOf(request)]);
        const wire::ReplyReading reading =
            decodeReply(operationFor(request), transaction.reply.value_or(recording::Bytes()));
        if (reading.hasResult && reading.reply.result < 0) {
            mFaults += fault + " error " + std::to_string(reading.reply.result) + '\n';
        } else if (transaction.duration >= kDelay && transaction.reply) {
            mFaults += fault + " delay " + std::to_string(transaction.duration / kMillisecond) + "ms\n";
        }
    }

    void add(const recording::Event& event) {
        const std::string payload(event.payload.begin(), event.payload.end());
        char identifier[16];
        std::snprintf(identifier, sizeof(identifier), "0x%X", event.event);
        addStep(event.moment.time, "",
                std::string("event ") + identifier + (payload.empty() ? "" : ' ' + hexOf(event.payload)), payload);
    }

    Sink mSink;
    std::string mFaults;
    std::string mText;
    std::vector<Step> mSteps;
    /** By the payload of the event. */
    std::map<std::string, std::vector<Change>> mChanges;
    std::int64_t mBegin = 0;
    std::map<std::string, int> mCounts;
    std::map<std::pair<const wire::StateKey*, wire::Values>, Known> mStates;
};

} // namespace

std::unique_ptr<Converter> scenarioConverter(Sink sink) { return std::make_unique<Scenario>(std::move(sink)); }

} // namespace kelutv::tool
