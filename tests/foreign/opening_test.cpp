#include "foreign/ForeignService.h"

#include <gtest/gtest.h>

namespace kelutv::test {
namespace {

/** The platform's functions are out of line, and in libraries that only the opened one is known to need. */
TEST(ForeignTrace, seesALibraryThatTheProgramOpens) {
    for (const std::string scope : {"local", "global"}) {
        const ForeignService service;
        const ToolRun run = service.run({"trace", "--", KELUTV_OPENING_CLIENT, KELUTV_FOREIGN_LIBRARY, scope});
        EXPECT_EQ(run.exit, 0) << run.error;
        const std::string line =
            "] CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=" + std::to_string(scope.size()) +
            ") -> 0 <";
        EXPECT_NE(run.error.find(line), std::string::npos) << run.error;
    }
}

} // namespace
} // namespace kelutv::test
