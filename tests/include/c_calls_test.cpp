#include "c_calls.h"

#include <support/Capture.h>

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

using kelutv::test::FdCapture;
using kelutv::test::LogCapture;

TEST(CInterface, RefusesNullPointersWithoutConnecting) {
    LogCapture log;
    FdCapture standardError(STDERR_FILENO);
    EXPECT_EQ(acceptedNullPointers(), 0);
    EXPECT_TRUE(log.take().empty());
    EXPECT_EQ(standardError.take(), "");
}

} // namespace
