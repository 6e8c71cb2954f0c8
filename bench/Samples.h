#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

namespace kelutv::bench {

/** The times of one kind of call. */
class Samples {
public:
    /** A few calls in a row; the first, which still pays for what ran before it, is not counted. */
    template <typename Call> void time(Call&& call) {
        call();
        for (int i = 0; i < kCallsInARow; ++i) {
            timeOne(call);
        }
    }

    /** The time in microseconds that the given share of the calls stayed within, 0.5 for the median. */
    double percentile(double share) const;

private:
    static constexpr int kCallsInARow = 4;

    template <typename Call> void timeOne(Call&& call) {
        const auto start = std::chrono::steady_clock::now();
        call();
        const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
        mMicroseconds.push_back(taken.count());
    }

    std::vector<double> mMicroseconds;
};

} // namespace kelutv::bench
