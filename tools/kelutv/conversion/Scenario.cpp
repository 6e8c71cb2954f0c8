#include "tools/kelutv/conversion/CallText.h"
#include "tools/kelutv/conversion/Converter.h"
#include "tools/kelutv/conversion/ObservedState.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/text/Hex.h"
#include "wire/events/Payload.h"
#include "wire/text/Quote.h"

#include <algorithm>
#include <cstdio>
#include <deque>
#include <map>
#include <utility>

namespace kelutv::tool {

namespace {

constexpr double kNanoseconds = 1e9;
/** How long behind a request the event that tells of it may come. */
constexpr std::int64_t kEcho = 1000000000;
/** What takes longer than this is a delay of the service. */
constexpr std::int64_t kDelay = 100000000;
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
            beginSection();
        } else if (const auto* const transaction = std::get_if<recording::Transaction>(&line.content)) {
            add(*transaction);
        } else if (const auto* const event = std::get_if<recording::Event>(&line.content)) {
            add(*event);
        } else if (const auto* const loss = std::get_if<recording::Loss>(&line.content)) {
            mSteps += "# " + when(loss->moment.time) + "the service was gone\n";
        }
    }

    void finish() override {
        mSink("# What a television did that was recorded, with nobody asking for it.\n" + mFaults + mSteps);
    }

private:
    /** The times of each section begin anew; what one left stays. */
    void beginSection() {
        mBegin += mLast;
        mLast = 0;
        mEchoes.clear();
    }

    std::string when(std::int64_t time) {
        mLast = std::max(mLast, time);
        char text[48];
        std::snprintf(text, sizeof(text), "at %.3fs ",
                      static_cast<double>(mBegin + std::max<std::int64_t>(time, 0)) / kNanoseconds);
        return text;
    }

    void add(const recording::Transaction& transaction) {
        const wire::Request request = decodeRequest(transaction.request).request;
        addFault(request, transaction);
        const auto state = observedState(request, transaction);
        if (!state) {
            return;
        }
        if (state->isSet) {
            mEchoes.push_back({transaction.moment.time + transaction.duration, wire::payloadOf(joined(*state))});
        }
        const auto known = mStates.find({state->key, state->indexes});
        if (known != mStates.end() && known->second != state->values && !state->isSet) {
            mSteps += when(transaction.moment.time) + "set " + state->key->name +
                      (state->indexes.empty() ? "" : '[' + textOf(state->indexes, ", ") + ']') + " = " +
                      textOf(state->values, ", ") + '\n';
        }
        mStates[{state->key, state->indexes}] = state->values;
    }

    static wire::Values joined(const ObservedState& state) {
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
        const std::string line = when(event.moment.time) + "event " + identifier +
                                 (payload.empty() ? "" : ' ' + hexOf(event.payload)) + '\n';
        mSteps += isEcho(event.moment.time, payload) ? "# The request before tells of itself: " + line : line;
    }

    bool isEcho(std::int64_t time, const std::string& payload) {
        while (!mEchoes.empty() && mEchoes.front().first + kEcho < time) {
            mEchoes.pop_front();
        }
        for (const auto& [set, echo] : mEchoes) {
            if (echo == payload) {
                return true;
            }
        }
        return false;
    }

    Sink mSink;
    std::string mFaults;
    std::string mSteps;
    std::int64_t mBegin = 0;
    std::int64_t mLast = 0;
    std::map<std::string, int> mCounts;
    std::map<std::pair<const wire::StateKey*, wire::Values>, wire::Values> mStates;
    /** When something was set, and the payload of an event of that. */
    std::deque<std::pair<std::int64_t, std::string>> mEchoes;
};

} // namespace

std::unique_ptr<Converter> scenarioConverter(Sink sink) { return std::make_unique<Scenario>(std::move(sink)); }

} // namespace kelutv::tool
