#pragma once

namespace kelutv::test {

/** While one exists, the thread that made it may not allocate: each time it does is counted and its stack is printed.
 */
class AllocationGuard {
public:
    AllocationGuard();
    ~AllocationGuard();
    AllocationGuard(const AllocationGuard&) = delete;
    AllocationGuard& operator=(const AllocationGuard&) = delete;

    int allocations() const;
};

} // namespace kelutv::test
