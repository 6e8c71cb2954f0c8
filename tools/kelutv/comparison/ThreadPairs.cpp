#include "tools/kelutv/comparison/ThreadPairs.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <tuple>

namespace kelutv::tool {

namespace {

/** Of more looks at what two threads have in common, or more pairs of threads, the threads are taken in their order. @{
 */
constexpr std::uint64_t kMostLooks = 100'000'000;
constexpr std::uint64_t kMostPairs = 4'000'000;
/** @} */

using Indexes = std::vector<std::size_t>;
using Numbers = std::vector<std::uint32_t>;

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

template <typename Member> Numbers numbersOf(const RecordedThread& thread, Member member) {
    Numbers numbers;
    numbers.reserve(thread.tokens.size());
    for (const Token& token : thread.tokens) {
        numbers.push_back(token.*member);
    }
    return numbers;
}

/** What a thread did, whatever the order. */
struct Doings {
    explicit Doings(const RecordedThread& thread)
        : requests(numbersOf(thread, &Token::request)), subjects(numbersOf(thread, &Token::subject)) {
        std::sort(requests.begin(), requests.end());
        std::sort(subjects.begin(), subjects.end());
    }

    Numbers requests;
    Numbers subjects;
};

std::size_t inCommon(const Numbers& left, const Numbers& right) {
    std::size_t count = 0;
    for (auto l = left.begin(), r = right.begin(); l != left.end() && r != right.end();) {
        if (*l == *r) {
            ++count;
            ++l;
            ++r;
        } else {
            ++(*l < *r ? l : r);
        }
    }
    return count;
}

/** Pairs threads step by step; those that have found each other are no longer looked at. */
class Matcher {
public:
    Matcher(const RecordedThreads& first, const RecordedThreads& second)
        : mFirst(first.threads), mSecond(second.threads), mPartners(mFirst.size(), kNone),
          mIsTaken(mSecond.size(), false) {}

    std::vector<ThreadPair> match() {
        matchEqual(&Token::whole);
        matchEqual(&Token::request);
        matchAlike();
        std::vector<ThreadPair> pairs;
        for (std::size_t i = 0; i < mFirst.size(); ++i) {
            pairs.push_back({&mFirst[i], mPartners[i] == kNone ? nullptr : &mSecond[mPartners[i]]});
        }
        for (const std::size_t i : restOfSecond()) {
            pairs.push_back({nullptr, &mSecond[i]});
        }
        return pairs;
    }

private:
    Indexes restOfFirst() const {
        Indexes rest;
        for (std::size_t i = 0; i < mFirst.size(); ++i) {
            if (mPartners[i] == kNone) {
                rest.push_back(i);
            }
        }
        return rest;
    }

    Indexes restOfSecond() const {
        Indexes rest;
        for (std::size_t i = 0; i < mSecond.size(); ++i) {
            if (!mIsTaken[i]) {
                rest.push_back(i);
            }
        }
        return rest;
    }

    void pair(std::size_t first, std::size_t second) {
        mPartners[first] = second;
        mIsTaken[second] = true;
    }

    /** Threads of which all steps are alike, in their order. */
    void matchEqual(std::uint32_t Token::*member) {
        std::map<Numbers, Indexes> others;
        const Indexes rest = restOfSecond();
        for (auto i = rest.rbegin(); i != rest.rend(); ++i) {
            others[numbersOf(mSecond[*i], member)].push_back(*i);
        }
        for (const std::size_t i : restOfFirst()) {
            const auto found = others.find(numbersOf(mFirst[i], member));
            if (found != others.end() && !found->second.empty()) {
                pair(i, found->second.back());
                found->second.pop_back();
            }
        }
    }

    static std::vector<Doings> doingsOf(const std::vector<RecordedThread>& threads, const Indexes& indexes) {
        std::vector<Doings> doings;
        for (const std::size_t i : indexes) {
            doings.emplace_back(threads[i]);
        }
        return doings;
    }

    static std::uint64_t sizeOf(const std::vector<Doings>& all) {
        std::uint64_t size = 0;
        for (const Doings& each : all) {
            size += each.requests.size();
        }
        return size;
    }

    /** The two that have most in common first. */
    void matchAlike() {
        const Indexes first = restOfFirst();
        const Indexes second = restOfSecond();
        const std::vector<Doings> left = doingsOf(mFirst, first);
        const std::vector<Doings> right = doingsOf(mSecond, second);
        if (std::uint64_t{left.size()} * right.size() > kMostPairs ||
            sizeOf(left) * right.size() + sizeOf(right) * left.size() > kMostLooks) {
            matchByOrder(first, second);
            return;
        }
        std::vector<std::tuple<std::size_t, std::size_t, std::size_t>> likenesses;
        for (std::size_t i = 0; i < left.size(); ++i) {
            for (std::size_t k = 0; k < right.size(); ++k) {
                const std::size_t likeness =
                    2 * inCommon(left[i].requests, right[k].requests) + inCommon(left[i].subjects, right[k].subjects);
                if (likeness > 0) {
                    likenesses.emplace_back(likeness, first[i], second[k]);
                }
            }
        }
        std::stable_sort(likenesses.begin(), likenesses.end(),
                         [](const auto& one, const auto& other) { return std::get<0>(one) > std::get<0>(other); });
        for (const auto& [likeness, i, k] : likenesses) {
            if (mPartners[i] == kNone && !mIsTaken[k]) {
                pair(i, k);
            }
        }
    }

    void matchByOrder(const Indexes& first, const Indexes& second) {
        for (std::size_t i = 0; i < std::min(first.size(), second.size()); ++i) {
            pair(first[i], second[i]);
        }
    }

    const std::vector<RecordedThread>& mFirst;
    const std::vector<RecordedThread>& mSecond;
    /** Of each thread of the first recording. */
    Indexes mPartners;
    std::vector<bool> mIsTaken;
};

} // namespace

std::vector<ThreadPair> pairsOf(const RecordedThreads& first, const RecordedThreads& second) {
    return Matcher(first, second).match();
}

} // namespace kelutv::tool
