#include "simulator/faults/FaultRule.h"

#include "simulator/text/Join.h"
#include "simulator/text/Numbers.h"
#include "simulator/text/Tokenizer.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <limits>
#include <map>
#include <stdexcept>
#include <utility>

namespace kelutv::simulator {

namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kMostBytes = 65536;
constexpr char kEffects[] =
    "error NUMBER, delay TIME, die before, die after, short BYTES, long BYTES, unterminated, count NUMBER";

/** Reads the clauses after the target of a fault; each may occur once, in any order. */
class ClauseReader {
public:
    ClauseReader(const std::vector<std::string>& words, std::size_t first) : mWords(words), mNext(first) {}

    void readAll() {
        while (mNext < mWords.size()) {
            readClause();
        }
        if (!effect) {
            throw std::invalid_argument(std::string("the fault does not say what goes wrong: ") + kEffects);
        }
    }

    std::optional<std::int32_t> caller;
    std::optional<std::int32_t> nth;
    std::optional<std::int32_t> times;
    std::optional<Effect> effect;

private:
    using Reader = void (ClauseReader::*)();

    static const std::map<std::string, Reader>& readers() {
        static const std::map<std::string, Reader> kReaders{
            {"count", &ClauseReader::readNumber<Effect::Kind::Count, kLeast, kMost>},
            {"delay", &ClauseReader::readDelay},
            {"die", &ClauseReader::readDie},
            {"error", &ClauseReader::readNumber<Effect::Kind::Error, kLeast, kMost>},
            {"from", &ClauseReader::readFrom},
            {"long", &ClauseReader::readNumber<Effect::Kind::Long, 1, kMostBytes>},
            {"nth", &ClauseReader::readNth},
            {"once", &ClauseReader::readOnce},
            {"short", &ClauseReader::readNumber<Effect::Kind::Short, 0, kMostBytes>},
            {"times", &ClauseReader::readTimes},
            {"unterminated", &ClauseReader::readUnterminated},
        };
        return kReaders;
    }

    void readClause() {
        mClause = mWords[mNext++];
        const auto found = readers().find(mClause);
        if (found == readers().end()) {
            std::vector<std::string> known;
            for (const auto& reader : readers()) {
                known.push_back(reader.first);
            }
            throw std::invalid_argument("a fault has no clause '" + wire::shown(mClause) + "'" +
                                        wire::nearestHint(mClause, known) +
                                        "; allowed: from PID, nth N, once, times N and one of " + kEffects);
        }
        (this->*found->second)();
    }

    void readFrom() { put(caller, number(1, kMost)); }
    void readNth() { put(nth, number(1, kMost)); }
    void readOnce() { put(times, 1); }
    void readTimes() { put(times, number(1, kMost)); }
    void readUnterminated() { put(effect, Effect{Effect::Kind::Unterminated, 0}); }

    template <Effect::Kind kind, std::int32_t low, std::int32_t high> void readNumber() {
        put(effect, Effect{kind, number(low, high)});
    }

    void readDelay() {
        const auto milliseconds = millisecondsOf(next());
        if (!milliseconds) {
            refuseWord("a time from 0ms to 3600s, like 200ms or 1.5s");
        }
        put(effect, Effect{Effect::Kind::Delay, *milliseconds});
    }

    void readDie() {
        const std::string& when = next();
        if (when != "before" && when != "after") {
            refuseWord("before or after");
        }
        put(effect, Effect{when == "before" ? Effect::Kind::DieBefore : Effect::Kind::DieAfter, 0});
    }

    template <typename Value> void put(std::optional<Value>& place, Value value) {
        if (place) {
            throw std::invalid_argument("'" + wire::shown(mClause) + "' repeats or contradicts an earlier clause");
        }
        place = value;
    }

    std::int32_t number(std::int32_t low, std::int32_t high) {
        const auto value = wholeNumber<std::int32_t>(next());
        if (!value || *value < low || *value > high) {
            refuseWord("a number from " + std::to_string(low) + " to " + std::to_string(high));
        }
        return *value;
    }

    const std::string& next() {
        static const std::string kNothing;
        return mNext < mWords.size() ? mWords[mNext++] : kNothing;
    }

    [[noreturn]] void refuseWord(const std::string& wanted) const {
        const std::string& word = mWords[mNext - 1];
        throw std::invalid_argument(mClause + " takes " + wanted +
                                    (word == mClause ? "" : ", not '" + wire::shown(word) + "'"));
    }

    const std::vector<std::string>& mWords;
    std::size_t mNext;
    std::string mClause;
};

} // namespace

FaultRule readFault(const std::string& line) {
    const std::vector<std::string> words = wordsOf(line);
    if (words.empty()) {
        throw std::invalid_argument("a fault begins with the command or item that it is for, or with any");
    }
    wire::RequestPattern pattern(words[0]);
    ClauseReader clauses(words, 1);
    clauses.readAll();
    const bool isSingle = clauses.nth && !clauses.times;
    return {joinedWords(words),      std::move(pattern),           clauses.caller,
            clauses.nth.value_or(1), isSingle ? 1 : clauses.times, *clauses.effect};
}

} // namespace kelutv::simulator
