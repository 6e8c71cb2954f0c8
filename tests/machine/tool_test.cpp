#include "DriverUser.h"
#include "tools/Tool.h"

#include <utils/Errors.h>

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

constexpr std::size_t kMemory = 65536;

/** What the tool says when the service manager gives this status. */
std::string refusalWith(int status) {
    return "kelutv: there is no television service; is the television, or kelutv-simulator, running?\n"
           "  looking for TVBaseService: the service manager gives status " +
           std::to_string(status) +
           "\n  no service TVBaseService at the service manager behind the kernel's binder driver\n";
}

TEST(ToolOverTheDriver, saysThatThereIsNoServiceManager) {
    const ToolRun run = runTool({"get", "volume"}, {"KQDROID_SERVICE_WAIT_MS=0"});
    EXPECT_EQ(run.exit, 3);
    EXPECT_EQ(run.error, refusalWith(android::DEAD_OBJECT));
}

TEST(ToolOverTheDriver, saysThatTheServiceManagerRefuses) {
    DriverUser manager(kMemory);
    manager.becomeContextManager();
    manager.enterLooper();
    const auto tool = startTool({"get", "volume"}, {"KQDROID_SERVICE_WAIT_MS=0"});
    ASSERT_EQ(manager.nextCall().command, static_cast<uint32_t>(BR_TRANSACTION));
    manager.refuse(android::PERMISSION_DENIED);
    EXPECT_EQ(tool->exitCode(), 3);
    EXPECT_EQ(tool->error().text(), refusalWith(android::PERMISSION_DENIED));
}

} // namespace
} // namespace kelutv::test
