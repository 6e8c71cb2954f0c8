#include "client/ClientTest.h"

#include <kelutv/PCMPlayer.h>
#include <kelutv/linux_kelutv_pcmplayer.h>

#include <type_traits>

namespace kelutv::test {
namespace {

static_assert(!std::is_polymorphic_v<PCMPlayer>);
static_assert(std::is_empty_v<PCMPlayer>);
static_assert(std::is_same_v<decltype(linux_tv_PCMPlayer_getStatus()), KELU_TV_PCMPLAYER_STATUS_E>);

PCMPlayer& player() { return *PCMPlayer::instance(); }

using PcmPlayer = ClientTest;

TEST_F(PcmPlayer, isOneObject) { EXPECT_EQ(PCMPlayer::instance(), PCMPlayer::instance()); }

// irregular: PCMPlayer::startPlay
TEST_F(PcmPlayer, sendsThePathLast) {
    answer({3});
    EXPECT_EQ(player().startPlay("/data/chime.pcm", true, false), 3);
    EXPECT_EQ(sent(), only(Wire::request(0xE001).i32(1).i32(0).cstr("/data/chime.pcm").bytes()));
    EXPECT_EQ(linux_tv_PCMPlayer_startPlay("/data/chime.pcm", false, true), 3);
    EXPECT_EQ(sent(), only(Wire::request(0xE001).i32(0).i32(1).cstr("/data/chime.pcm").bytes()));
}

TEST_F(PcmPlayer, sendsANullPathAsAnEmptyOne) {
    EXPECT_EQ(player().startPlay(nullptr, true, true), 0);
    EXPECT_EQ(sent(), only(Wire::request(0xE001).i32(1).i32(1).cstr("").bytes()));
    EXPECT_EQ(linux_tv_PCMPlayer_startPlay(nullptr, false, false), 0);
    EXPECT_EQ(sent(), only(Wire::request(0xE001).i32(0).i32(0).cstr("").bytes()));
}

// irregular: linux_tv_PCMPlayer_getStatus
TEST_F(PcmPlayer, tellsItsStatusUnchecked) {
    answer({0, 1});
    EXPECT_EQ(player().getStatus(), 1);
    EXPECT_EQ(linux_tv_PCMPlayer_getStatus(), KELU_TV_PCMPLAYER_PLAYING);
    EXPECT_EQ(sent(), std::vector<std::string>(2, hex(requestOf(0xE003))));
    answer({0, 57});
    EXPECT_EQ(static_cast<int>(linux_tv_PCMPlayer_getStatus()), 57);
}

TEST_F(PcmPlayer, tellsAFailureInTheStatus) {
    answer({3, 1});
    EXPECT_EQ(player().getStatus(), -1);
    EXPECT_EQ(static_cast<int>(linux_tv_PCMPlayer_getStatus()), -1);
    failTransactions();
    EXPECT_EQ(player().getStatus(), -1);
    EXPECT_EQ(static_cast<int>(linux_tv_PCMPlayer_getStatus()), -1);
    EXPECT_EQ(logged(), kNothingLogged);
}

} // namespace
} // namespace kelutv::test
