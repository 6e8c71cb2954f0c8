#include "tools/kelutv/comparison/RecordingDifference.h"

#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/comparison/Alignment.h"
#include "tools/kelutv/comparison/ThreadPairs.h"

#include <algorithm>
#include <chrono>
#include <unordered_map>

namespace kelutv::tool {

namespace {

using Tell = std::function<void(const RecordingDifference& difference)>;

/** Durations that differ by less say more of the machine than of the service. */
constexpr std::int64_t kLeastNanoseconds = 1'000'000;

/** Finds pairs that are out of order: what one side lacks here and the other one there. */
void pairMoved(const std::vector<Token>& first, const std::vector<Token>& second, std::vector<Aligned>& aligned) {
    std::unordered_map<std::uint32_t, std::vector<std::size_t>> added;
    for (std::size_t i = aligned.size(); i-- > 0;) {
        if (!aligned[i].first) {
            added[second[*aligned[i].second].request].push_back(i);
        }
    }
    for (Aligned& each : aligned) {
        if (each.second || !each.first) {
            continue;
        }
        const auto found = added.find(first[*each.first].request);
        if (found != added.end() && !found->second.empty()) {
            each.second = aligned[found->second.back()].second;
            aligned[found->second.back()].second.reset();
            found->second.pop_back();
        }
    }
}

/** Compares the threads of one pair. */
class ThreadComparison {
public:
    ThreadComparison(const ThreadPair& pair, const Vocabulary& vocabulary, const Ignored& ignored,
                     std::optional<double> factor)
        : mPair(pair), mVocabulary(vocabulary), mIgnored(ignored), mFactor(factor) {}

    /** @return how much was compared */
    std::size_t compare(const Tell& tell) const {
        static const std::vector<Token> kNothing;
        const std::vector<Token>& first = mPair.first != nullptr ? mPair.first->tokens : kNothing;
        const std::vector<Token>& second = mPair.second != nullptr ? mPair.second->tokens : kNothing;
        std::vector<Aligned> aligned = align(first, second);
        std::vector<bool> isMoved(aligned.size(), true);
        for (std::size_t i = 0; i < aligned.size(); ++i) {
            isMoved[i] = !aligned[i].first || !aligned[i].second;
        }
        pairMoved(first, second, aligned);
        for (std::size_t i = 0; i < aligned.size(); ++i) {
            if (aligned[i].first || aligned[i].second) {
                compare(aligned[i], isMoved[i], tell);
            }
        }
        return std::max(first.size(), second.size());
    }

private:
    RecordedPlace placeOf(const RecordedThread& thread, std::size_t index) const {
        return {thread.steps[index].line, thread.process, thread.thread,
                &mVocabulary.happeningOf(thread.tokens[index])};
    }

    void compare(const Aligned& aligned, bool isMoved, const Tell& tell) const {
        RecordingDifference difference{"changed", std::nullopt, std::nullopt, {}};
        if (aligned.first) {
            difference.first = placeOf(*mPair.first, *aligned.first);
        }
        if (aligned.second) {
            difference.second = placeOf(*mPair.second, *aligned.second);
        }
        if (!aligned.first || !aligned.second) {
            difference.kind = aligned.first ? "missing" : "added";
            tell(difference);
            return;
        }
        difference.values = differencesIn(*aligned.first, *aligned.second);
        if (isMoved) {
            difference.kind = "moved";
        }
        if (isMoved || !difference.values.empty()) {
            tell(difference);
        }
    }

    std::vector<ValueDifference> differencesIn(std::size_t first, std::size_t second) const {
        std::vector<ValueDifference> differences;
        const Token& token = mPair.first->tokens[first];
        const Token& other = mPair.second->tokens[second];
        if (token.happening != other.happening) {
            differences = differencesOf(mVocabulary.happeningOf(token), mVocabulary.happeningOf(other));
        }
        addDuration(mPair.first->steps[first].duration, mPair.second->steps[second].duration, differences);
        mIgnored.takeFrom(differences, mVocabulary.happeningOf(token));
        return differences;
    }

    void addDuration(std::int64_t first, std::int64_t second, std::vector<ValueDifference>& differences) const {
        const auto [less, more] = std::minmax(first, second);
        const bool isBeyond = mFactor && more - less >= kLeastNanoseconds &&
                              static_cast<double>(more) > *mFactor * static_cast<double>(less);
        if (isBeyond) {
            const auto seconds = [](std::int64_t time) { return static_cast<double>(time) / 1e9; };
            const auto text = [](std::int64_t time) { return millisecondsText(std::chrono::nanoseconds(time)); };
            differences.push_back({"duration", "duration", seconds(first), seconds(second), text(first), text(second)});
        }
    }

    ThreadPair mPair;
    const Vocabulary& mVocabulary;
    const Ignored& mIgnored;
    std::optional<double> mFactor;
};

} // namespace

ComparisonSum compareRecordings(const ComparisonOrder& order, const Tell& tell) {
    const Ignored ignored("--ignore", order.ignored);
    Vocabulary vocabulary(ignored);
    const RecordedThreads first = threadsOf(order.first, ignored, vocabulary);
    const RecordedThreads second = threadsOf(order.second, ignored, vocabulary);
    ComparisonSum sum;
    sum.leftOutOfFirst = first.leftOut;
    sum.leftOutOfSecond = second.leftOut;
    const Tell count = [&sum, &tell](const RecordingDifference& difference) {
        ++sum.differences;
        tell(difference);
    };
    for (const ThreadPair& pair : pairsOf(first, second)) {
        sum.compared += ThreadComparison(pair, vocabulary, ignored, order.factor).compare(count);
    }
    return sum;
}

} // namespace kelutv::tool
