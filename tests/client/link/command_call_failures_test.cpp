#include "client/ClientTest.h"
#include "client/CommandCalls.h"

#include <unistd.h>

namespace kelutv::test {
namespace {

using android::Parcel;

/** Runs with a link that is absent, with one that is dead, and with a living one whose transactions fail. */
class CommandCallFailure : public ClientTest, public ::testing::WithParamInterface<CommandCall> {
protected:
    CommandCallFailure() { failTransactions(); }
};

TEST_P(CommandCallFailure, isMinusOneAndLoggedWhereItBelongs) {
    Parcel result;
    result.writeInt32(1001);
    EXPECT_EQ(GetParam().make(result), -1);
    EXPECT_EQ(logged(), GetParam().logsFailure ? kInvokeFailure : kNothingLogged);
    EXPECT_EQ(result.dataSize(), 4U);
    result.setDataPosition(0);
    EXPECT_EQ(result.readInt32(), 1001);
}

TEST_P(CommandCallFailure, isSilentOnTheStandardDescriptors) {
    FdCapture standardError(STDERR_FILENO);
    FdCapture standardOutput(STDOUT_FILENO);
    Parcel result;
    GetParam().make(result);
    const std::string error = standardError.take();
    const std::string output = standardOutput.take();
    EXPECT_EQ(error, "");
    EXPECT_EQ(output, "");
}

INSTANTIATE_TEST_SUITE_P(Link, CommandCallFailure, ::testing::ValuesIn(commandCalls()), nameOf);

} // namespace
} // namespace kelutv::test
