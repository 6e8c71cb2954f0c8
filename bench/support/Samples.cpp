#include "Samples.h"

#include <algorithm>

namespace kelutv::bench {

double Samples::percentile(double share) const {
    if (mSamples.empty()) {
        return 0;
    }
    std::vector<double> sorted = mSamples;
    const auto last = static_cast<double>(sorted.size() - 1);
    const auto at = sorted.begin() + static_cast<std::ptrdiff_t>(share * last);
    std::nth_element(sorted.begin(), at, sorted.end());
    return *at;
}

} // namespace kelutv::bench
