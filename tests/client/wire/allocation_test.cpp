// Once the link stands, a call that carries nothing but numbers takes no memory.

#include "client/wire/WireTable.h"
#include "support/AllocationGuard.h"
#include "support/Link.h"

#include <cstdlib>

namespace kelutv::test {

namespace {

LinkEnvironment& environment = LinkEnvironment::install();

constexpr int kCalls = 10;

} // namespace

TEST(AllocationGuard, countsWhatItForbids) {
    const AllocationGuard guard;
    void* volatile block = std::malloc(1);
    std::free(block);
    // Seen from outside, or the compiler would leave the pair out.
    int* volatile number = new int(0);
    delete number;
    EXPECT_EQ(guard.allocations(), 2);
}

TEST_P(WireTable, takesNoMemory) {
    if (GetParam().bare == nullptr) {
        return;
    }
    environment.service().reply(Wire::reply().i32(0).i32(7).bytes());
    GetParam().bare();
    const AllocationGuard guard;
    for (int call = 0; call < kCalls; ++call) {
        GetParam().bare();
    }
    EXPECT_EQ(guard.allocations(), 0);
}

} // namespace kelutv::test
