#include "simulator/Simulator.h"

#include "support/Deadline.h"
#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/FunctionNamed.h"

#include <kelutv/linux_kelutv_notify.h>

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <string>

namespace kelutv::test {
namespace {

[[maybe_unused]] const auto& environmentOfEncodeThenCall = SimulatorEnvironment::install();

constexpr int kVolumeChanged = 0x60001;
std::atomic<int> lastEvent{0};

void remember(int event, void* /*message*/, unsigned int /*length*/, void* /*previous*/) { lastEvent = event; }

/** The library makes its client while there is no service, and never again. */
TEST(EncodeThenCall, reachesTheServiceAndItsEvents) {
    const wire::Function& setVolume = tool::functionNamed("audio.setVolume");
    const wire::Function& getVolume = tool::functionNamed("audio.getVolume");
    EXPECT_EQ(tool::requestsOf(setVolume, {"speaker", "1"}).size(), 1U);
    const std::string directory = std::getenv("KQDROID_RUNTIME_DIR");
    ::setenv("KQDROID_RUNTIME_DIR", (directory + "/elsewhere").c_str(), 1);
    EXPECT_THROW(tool::callFunction(getVolume, {"speaker"}), tool::LinkError);
    ::setenv("KQDROID_RUNTIME_DIR", directory.c_str(), 1);
    EXPECT_EQ(tool::callFunction(getVolume, {"speaker"}).result.dump(), "20");
    linux_tv_registerCallbackFunc(remember);
    EXPECT_EQ(tool::callFunction(setVolume, {"speaker", "77"}).result.dump(), "0");
    EXPECT_TRUE(eventually([] { return lastEvent == kVolumeChanged; }));

    EXPECT_EQ(tool::requestsOf(setVolume, {"speaker", "2"}).size(), 1U);
    EXPECT_EQ(tool::callFunction(getVolume, {"speaker"}).result.dump(), "77");
    linux_tv_unRegisterCallbackFunc(nullptr);
}

} // namespace
} // namespace kelutv::test
