#include "client/ClientTest.h"

#include <kelutv/linux_kelutv_notify.h>

#include <unistd.h>

namespace kelutv::test {
namespace {

void ignore(int, void*, unsigned int, void*) {}

/** Runs with every state of the link: neither the results nor the traces depend on it. */
class Notify : public ClientTest {
protected:
    template <typename Call> std::string outputOf(Call call) {
        FdCapture standardOutput(STDOUT_FILENO);
        result = call();
        return standardOutput.take();
    }

    int result = -99;
};

// irregular: linux_tv_registerCallbackFunc
TEST_F(Notify, registrationIsTracedOnStandardOutput) {
    const std::string output = outputOf([] { return linux_tv_registerCallbackFunc(ignore); });
    EXPECT_EQ(output, "call linux_tv_registerCallbackFunc line 6\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(Notify, registrationOfNullIsTracedAsWell) {
    const std::string output = outputOf([] { return linux_tv_registerCallbackFunc(nullptr); });
    EXPECT_EQ(output, "call linux_tv_registerCallbackFunc line 6\n");
    EXPECT_EQ(result, 0);
}

TEST_F(Notify, unregistrationLeavesNoTrace) {
    const std::string output = outputOf([] { return linux_tv_unRegisterCallbackFunc(ignore); });
    EXPECT_EQ(output, "");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(logged(), kNothingLogged);
}

} // namespace
} // namespace kelutv::test
