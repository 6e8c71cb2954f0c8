#include "client/ClientTest.h"

#include <kelutv/Audio.h>
#include <kelutv/link/TVBaseClient.h>
#include <kelutv/linux_kelutv_audio.h>

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace kelutv::test {
namespace {

/** Runs the check in a forked child and gives back what it returned. */
template <typename Check> int inChild(Check check) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(10);
        ::_exit(check());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

TEST_F(ClientTest, callsOfAForkedChildFailAndTheParentGoesOn) {
    answer({0, 7});
    EXPECT_EQ(Audio::instance()->getVolume(1), 7);
    const int failures = inChild([] {
        int count = 0;
        count += linux_tv_Audio_getVolume(1) == -1 ? 1 : 0;
        count += linux_tv_Audio_setVolume(1, 2) == -1 ? 1 : 0;
        count += android::TVBaseClient::self()->exeCmdSet(0x2002, 1) == -1 ? 1 : 0;
        return count;
    });
    EXPECT_EQ(failures, 3);
    EXPECT_EQ(Audio::instance()->getVolume(1), 7);
    EXPECT_EQ(sent(), std::vector<std::string>(2, hex(requestOf(0x2009, {1}))));
}

TEST_F(ClientTest, aForkedChildMayExitWithItsHandlers) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(10);
        // Only the client's own handlers are of interest, not the test program's.
        android::TVBaseClient::self()->exeCmdGet(0x2003);
        std::exit(0);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(android::TVBaseClient::self()->exeCmdSet(0x2002), 0);
}

} // namespace
} // namespace kelutv::test
