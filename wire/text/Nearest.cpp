#include "wire/text/Nearest.h"

#include "wire/text/Letters.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <set>
#include <utility>

namespace kelutv::wire {

namespace {

constexpr std::size_t kMostNames = 5;

/** How many letters must be put in, taken out, replaced or swapped with their neighbour to make one of the other. */
std::size_t distanceOf(const std::string& left, const std::string& right) {
    std::vector<std::size_t> beforeLast(right.size() + 1);
    std::vector<std::size_t> last(right.size() + 1);
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 1; i <= left.size(); ++i) {
        beforeLast.swap(last);
        last.swap(row);
        row[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            const std::size_t replaced = last[j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
            if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
                row[j] = std::min(row[j], beforeLast[j - 2] + 1);
            }
        }
    }
    return row.back();
}

bool holdsEnough(const std::string& name, const std::string& written) {
    constexpr std::size_t kLeastLetters = 3;
    return written.size() >= kLeastLetters && name.find(written) != std::string::npos;
}

} // namespace

std::vector<std::string> nearestNames(const std::string& written, const std::vector<std::string>& names) {
    const std::string wanted = lowered(written);
    const std::size_t farthest = std::max<std::size_t>(1, wanted.size() / 3);
    std::set<std::pair<std::size_t, std::string>> near;
    for (const std::string& name : names) {
        const std::string candidate = lowered(name);
        if (wanted.size() > candidate.size() + farthest) {
            continue; // A longer word differs in more letters, and comparing takes the time of both lengths.
        }
        const std::size_t distance = distanceOf(wanted, candidate);
        if (distance <= farthest || holdsEnough(candidate, wanted)) {
            near.emplace(distance, name);
        }
    }
    std::vector<std::string> nearest;
    for (auto each = near.begin(); each != near.end() && nearest.size() < kMostNames; ++each) {
        nearest.push_back(each->second);
    }
    return nearest;
}

std::string nearestHint(const std::string& written, const std::vector<std::string>& names) {
    std::string hint;
    for (const std::string& name : nearestNames(written, names)) {
        hint += (hint.empty() ? "; nearest: " : ", ") + name;
    }
    return hint;
}

} // namespace kelutv::wire
