#pragma once

#include <chrono>
#include <cstddef>
#include <vector>

namespace kelutv::bench {

/** What was measured again and again. */
class Samples {
public:
    void add(double sample) { mSamples.push_back(sample); }

    /** A few calls in a row, each in microseconds; the first, which still pays for what ran before it, is not counted.
     */
    template <typename Call> void time(Call&& call) {
        call();
        for (int i = 0; i < kCallsInARow; ++i) {
            timeOne(call);
        }
    }

    /** What the given share of the samples stayed within, 0.5 for the median; 0 when there are none. */
    double percentile(double share) const;
    double median() const { return percentile(0.5); }

private:
    static constexpr int kCallsInARow = 4;

    template <typename Call> void timeOne(Call&& call) {
        const auto start = std::chrono::steady_clock::now();
        call();
        const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
        add(taken.count());
    }

    std::vector<double> mSamples;
};

} // namespace kelutv::bench
