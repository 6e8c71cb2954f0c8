#include "client/ClientTest.h"
#include "client/audio/TheAudio.h"

#include <list>
#include <string>

namespace kelutv::test {
namespace {

using Names = std::list<std::string>;

using AudioOutputs = ClientTest;

TEST_F(AudioOutputs, areListedInTheOrderOfTheReply) {
    service().reply(Wire::reply().i32(0).cstr("speaker").cstr("").cstr("hdmi arc").cstr("bt").bytes());
    const Names names = audio().getOutputList();
    EXPECT_EQ(names, (Names{"speaker", "", "hdmi arc", "bt"}));
    EXPECT_EQ(sent(), only(requestOf(0x2058)));
}

TEST_F(AudioOutputs, mayBeNone) {
    answer({0});
    EXPECT_EQ(audio().getOutputList(), Names());
    service().reply({});
    EXPECT_EQ(audio().getOutputList(), Names());
}

TEST_F(AudioOutputs, endAtAnUnterminatedName) {
    service().reply(Wire::reply().i32(0).cstr("speaker").raw("arcs", 4).bytes());
    EXPECT_EQ(audio().getOutputList(), (Names{"speaker"}));
    service().reply(Wire::reply().i32(0).raw("arcs", 4).bytes());
    EXPECT_EQ(audio().getOutputList(), Names());
}

constexpr char kNullText[] = "getOutputStatus input buf is null";
constexpr char kFailureText[] = "[527] getOutputStatus,err,force pOnoff = 0";

Bytes statusRequest(const char* name) { return Wire::request(0x2059).cstr(name).bytes(); }

/** The link's own line, then the method's. */
std::vector<LogEntry> failureLines() { return {kInvokeFailure.front(), untaggedError(kFailureText).front()}; }

using AudioOutputStatus = ClientTest;

// irregular: Audio::getOutputStatus
TEST_F(AudioOutputStatus, isStoredOnSuccess) {
    bool on = false;
    answer({0, -5});
    EXPECT_EQ(audio().getOutputStatus("speaker", &on), 0);
    EXPECT_TRUE(on);
    EXPECT_EQ(sent(), only(statusRequest("speaker")));
    answer({0, 0});
    EXPECT_EQ(audio().getOutputStatus("speaker", &on), 0);
    EXPECT_FALSE(on);
    EXPECT_EQ(logged(), kNothingLogged);
}

TEST_F(AudioOutputStatus, isLeftAsItWasByAFailureThatReturnsZero) {
    bool on = true;
    answer({1, 0});
    EXPECT_EQ(audio().getOutputStatus("speaker", &on), 0);
    EXPECT_TRUE(on);
    EXPECT_EQ(logged(), failureLines());
    failTransactions();
    EXPECT_EQ(audio().getOutputStatus("speaker", &on), 0);
    EXPECT_TRUE(on);
    EXPECT_EQ(logged(), failureLines());
}

TEST_F(AudioOutputStatus, ofANullNameIsStillAskedForAndStored) {
    bool on = false;
    answer({0, 1});
    EXPECT_EQ(audio().getOutputStatus(nullptr, &on), -1);
    EXPECT_TRUE(on);
    EXPECT_EQ(sent(), only(statusRequest("")));
    EXPECT_EQ(logged(), untaggedError(kNullText));
}

TEST_F(AudioOutputStatus, isAskedForButNotStoredWithoutAPlace) {
    answer({0, 1});
    EXPECT_EQ(audio().getOutputStatus("speaker", nullptr), -1);
    EXPECT_EQ(sent(), only(statusRequest("speaker")));
    EXPECT_EQ(logged(), untaggedError(kNullText));
}

TEST_F(AudioOutputStatus, isBothRefusedAndFailed) {
    answer({1});
    EXPECT_EQ(audio().getOutputStatus(nullptr, nullptr), -1);
    EXPECT_EQ(sent(), only(statusRequest("")));
    const std::vector<LogEntry> lines{untaggedError(kNullText).front(), kInvokeFailure.front(),
                                      untaggedError(kFailureText).front()};
    EXPECT_EQ(logged(), lines);
}

} // namespace
} // namespace kelutv::test
