#include "tools/kelutv/comparison/Alignment.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace kelutv::tool {

namespace {

constexpr std::size_t kMostCells = 4'000'000;
/** Of a piece that is aligned by itself; half of it is taken, the rest is looked at again with what follows. */
constexpr std::size_t kWindow = 1024;
constexpr int kDeepest = 32;

/** What pairs count: one request more than two subjects, so that what only changed its place is not taken for changed.
 */
constexpr std::int32_t kAlike = 11;
constexpr std::int32_t kSameRequest = 10;
constexpr std::int32_t kSameSubject = 4;

std::int32_t worthOf(const Token& first, const Token& second) {
    return first.whole == second.whole       ? kAlike
           : first.request == second.request ? kSameRequest
           : first.subject == second.subject ? kSameSubject
                                             : 0;
}

/** A piece of a sequence. */
struct Piece {
    std::size_t begin;
    std::size_t end;

    std::size_t size() const { return end - begin; }
};

/** The numbers of as many requests in a row. */
using Gram = std::uint64_t;

struct GramPlace {
    Gram gram;
    std::size_t index;
};

bool isBelow(const GramPlace& left, const GramPlace& right) { return left.gram < right.gram; }

/** The grams of a piece that are there once, in ascending order. */
std::vector<GramPlace> uniqueGrams(const std::vector<Token>& tokens, Piece piece, std::size_t length) {
    std::vector<GramPlace> places;
    for (std::size_t i = piece.begin; i + length <= piece.end; ++i) {
        Gram gram = 14695981039346656037U;
        for (std::size_t k = 0; k < length; ++k) {
            gram = (gram ^ tokens[i + k].request) * 1099511628211U;
        }
        places.push_back({gram, i});
    }
    std::sort(places.begin(), places.end(), isBelow);
    std::vector<GramPlace> unique;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const bool isFirst = i == 0 || places[i - 1].gram != places[i].gram;
        if (isFirst && (i + 1 == places.size() || places[i + 1].gram != places[i].gram)) {
            unique.push_back(places[i]);
        }
    }
    return unique;
}

struct Anchor {
    std::size_t first;
    std::size_t second;
};

/** The longest of the lists of anchors that ascend on both sides; they ascend on the first side already. */
std::vector<Anchor> longestAscending(const std::vector<Anchor>& anchors) {
    constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::vector<std::size_t> ends;
    std::vector<std::size_t> before(anchors.size(), kNone);
    for (std::size_t i = 0; i < anchors.size(); ++i) {
        const auto place =
            std::lower_bound(ends.begin(), ends.end(), i, [&anchors](std::size_t left, std::size_t right) {
                return anchors[left].second < anchors[right].second;
            });
        before[i] = place == ends.begin() ? kNone : *std::prev(place);
        if (place == ends.end()) {
            ends.push_back(i);
        } else {
            *place = i;
        }
    }
    std::vector<Anchor> longest;
    for (std::size_t i = ends.empty() ? kNone : ends.back(); i != kNone; i = before[i]) {
        longest.push_back(anchors[i]);
    }
    std::reverse(longest.begin(), longest.end());
    return longest;
}

class Aligner {
public:
    Aligner(const std::vector<Token>& first, const std::vector<Token>& second) : mFirst(first), mSecond(second) {}

    std::vector<Aligned> align() {
        alignPieces({0, mFirst.size()}, {0, mSecond.size()}, 0);
        return std::move(mAligned);
    }

private:
    bool areAlike(std::size_t first, std::size_t second) const { return mFirst[first].whole == mSecond[second].whole; }

    void takeAlike(Piece& first, Piece& second) {
        while (first.size() > 0 && second.size() > 0 && areAlike(first.begin, second.begin)) {
            mAligned.push_back({first.begin++, second.begin++});
        }
    }

    void alignPieces(Piece first, Piece second, int depth) {
        takeAlike(first, second);
        std::size_t tail = 0;
        while (first.size() > 0 && second.size() > 0 && areAlike(first.end - 1, second.end - 1)) {
            --first.end;
            --second.end;
            ++tail;
        }
        alignDifferent(first, second, depth);
        for (std::size_t i = 0; i < tail; ++i) {
            mAligned.push_back({first.end + i, second.end + i});
        }
    }

    void alignDifferent(Piece first, Piece second, int depth) {
        if (first.size() == 0 || second.size() == 0 || first.size() <= kMostCells / second.size()) {
            append(bestAlignment(first, second));
            return;
        }
        const std::vector<Anchor> anchors = depth < kDeepest ? anchorsOf(first, second) : std::vector<Anchor>();
        if (anchors.empty()) {
            alignByWindow(first, second);
            return;
        }
        for (const Anchor& anchor : anchors) {
            alignPieces({first.begin, anchor.first}, {second.begin, anchor.second}, depth + 1);
            mAligned.push_back({anchor.first, anchor.second});
            first.begin = anchor.first + 1;
            second.begin = anchor.second + 1;
        }
        alignPieces(first, second, depth + 1);
    }

    /** Requests that both pieces have once, a row of them rather than one, in the same order. */
    std::vector<Anchor> anchorsOf(Piece first, Piece second) const {
        const std::vector<Anchor> inRows = anchorsOf(first, second, 16);
        return inRows.empty() ? anchorsOf(first, second, 1) : inRows;
    }

    std::vector<Anchor> anchorsOf(Piece first, Piece second, std::size_t length) const {
        const std::vector<GramPlace> left = uniqueGrams(mFirst, first, length);
        const std::vector<GramPlace> right = uniqueGrams(mSecond, second, length);
        std::vector<Anchor> anchors;
        auto other = right.begin();
        for (const GramPlace& place : left) {
            other = std::lower_bound(other, right.end(), place, isBelow);
            if (other != right.end() && other->gram == place.gram &&
                mFirst[place.index].request == mSecond[other->index].request) {
                anchors.push_back({place.index, other->index});
            }
        }
        std::sort(anchors.begin(), anchors.end(),
                  [](const Anchor& one, const Anchor& another) { return one.first < another.first; });
        return longestAscending(anchors);
    }

    /** Piece by piece, each with what the one before it left. */
    void alignByWindow(Piece first, Piece second) {
        while (first.size() > 0 && second.size() > 0) {
            takeAlike(first, second);
            const Piece left = first;
            const Piece right = second;
            for (const Aligned& aligned : bestAlignment(windowOf(left), windowOf(right))) {
                if (first.begin - left.begin >= kWindow / 2 || second.begin - right.begin >= kWindow / 2) {
                    break;
                }
                first.begin += aligned.first ? 1 : 0;
                second.begin += aligned.second ? 1 : 0;
                mAligned.push_back(aligned);
            }
        }
        append(bestAlignment(first, second));
    }

    static Piece windowOf(Piece piece) { return {piece.begin, piece.begin + std::min(piece.size(), kWindow)}; }

    enum class Step : std::uint8_t { Pair, SkipFirst, SkipSecond };

    /** The best step at each combination of two places, row by row. */
    std::vector<Step> bestSteps(Piece first, Piece second) const {
        const std::size_t columns = second.size();
        std::vector<Step> steps(first.size() * columns);
        // What the places behind each one are worth.
        std::vector<std::int32_t> below(columns + 1, 0);
        std::vector<std::int32_t> row(columns + 1, 0);
        for (std::size_t i = first.size(); i-- > 0;) {
            for (std::size_t j = columns; j-- > 0;) {
                const std::int32_t worth = worthOf(mFirst[first.begin + i], mSecond[second.begin + j]);
                const std::int32_t paired = worth > 0 ? worth + below[j + 1] : -1;
                row[j] = std::max({paired, below[j], row[j + 1]});
                steps[i * columns + j] = row[j] == paired     ? Step::Pair
                                         : row[j] == below[j] ? Step::SkipFirst
                                                              : Step::SkipSecond;
            }
            std::swap(row, below);
        }
        return steps;
    }

    /** Of all alignments the one that is worth most. */
    std::vector<Aligned> bestAlignment(Piece first, Piece second) const {
        const std::vector<Step> steps = bestSteps(first, second);
        std::vector<Aligned> best;
        for (std::size_t i = 0, j = 0; i < first.size() || j < second.size();) {
            const Step step = i == first.size()    ? Step::SkipSecond
                              : j == second.size() ? Step::SkipFirst
                                                   : steps[i * second.size() + j];
            Aligned aligned;
            if (step != Step::SkipSecond) {
                aligned.first = first.begin + i++;
            }
            if (step != Step::SkipFirst) {
                aligned.second = second.begin + j++;
            }
            best.push_back(aligned);
        }
        return best;
    }

    void append(const std::vector<Aligned>& aligned) {
        mAligned.insert(mAligned.end(), aligned.begin(), aligned.end());
    }

    const std::vector<Token>& mFirst;
    const std::vector<Token>& mSecond;
    std::vector<Aligned> mAligned;
};

} // namespace

std::vector<Aligned> align(const std::vector<Token>& first, const std::vector<Token>& second) {
    return Aligner(first, second).align();
}

} // namespace kelutv::tool
