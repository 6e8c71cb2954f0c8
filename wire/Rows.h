#pragma once

#include <cstddef>

namespace kelutv::wire {

/** A table of constants that lives as long as the program. */
template <typename Row> class Rows {
public:
    constexpr Rows() = default;
    template <std::size_t count>
    constexpr Rows(const Row (&rows)[count]) : mRows(rows), mCount(count) {} // NOLINT(google-explicit-constructor)
    /** Those of a table that was read at run time; they must stay. */
    constexpr Rows(const Row* rows, std::size_t count) : mRows(rows), mCount(count) {}

    constexpr const Row* begin() const { return mRows; }
    constexpr const Row* end() const { return mRows + mCount; }
    constexpr std::size_t size() const { return mCount; }
    constexpr const Row& operator[](std::size_t index) const { return mRows[index]; }

private:
    const Row* mRows = nullptr;
    std::size_t mCount = 0;
};

} // namespace kelutv::wire
