// Once the link stands, a call that carries nothing but numbers takes no memory.

#include "client/wire/WireTest.h"
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

TEST_P(WireTest, takesNoMemory) {
    const WireOperation& operation = *GetParam();
    if (!operation.numbersOnly) {
        return;
    }
    environment.service().reply(Wire::reply().i32(0).i32(7).bytes());
    Observed seen;
    operation.call(seen, 0);
    const AllocationGuard guard;
    for (int call = 0; call < kCalls; ++call) {
        seen.clear();
        operation.call(seen, 0);
    }
    EXPECT_EQ(guard.allocations(), 0);
}

INSTANTIATE_TEST_SUITE_P(Catalogue, WireTest, ::testing::ValuesIn(everyOperation()), operationName);

} // namespace kelutv::test
