#pragma once

namespace kelutv::test {

/** Which allocations of a starved thread fail: one, or that one and all behind it. */
enum class Failing { Once, FromThenOn };

/** While one exists, the allocations of the thread that made it fail as it says; the first has the number 1. */
class Starvation {
public:
    Starvation(int number, Failing failing);
    ~Starvation();
    Starvation(const Starvation&) = delete;
    Starvation& operator=(const Starvation&) = delete;

    /** Whether an allocation has failed. */
    bool felt() const;
};

} // namespace kelutv::test
