#include "client/ClientTest.h"

#include <kelutv/Audio.h>
#include <kelutv/linux_kelutv_audio.h>

#include <cstring>
#include <type_traits>
#include <vector>

namespace kelutv::test {
namespace {

static_assert(std::is_polymorphic_v<Audio>);
static_assert(!std::has_virtual_destructor_v<Audio>);
static_assert(sizeof(Audio) == sizeof(void*), "the class holds no data");

/** Stands in the one virtual slot of the class. */
class NotingAudio : public Audio {
public:
    int setAudioItemValue(int cmdID, int param1, int param2, int param3, int param4) override {
        arguments = {cmdID, param1, param2, param3, param4};
        return 4711;
    }

    static std::vector<int> arguments;
};

std::vector<int> NotingAudio::arguments;

/** Gives the singleton the virtual table of another object for a while. */
class TableSwap {
public:
    explicit TableSwap(const Audio& other) {
        std::memcpy(&mOwn, static_cast<void*>(Audio::instance()), sizeof mOwn);
        std::memcpy(static_cast<void*>(Audio::instance()), static_cast<const void*>(&other), sizeof mOwn);
    }
    ~TableSwap() { std::memcpy(static_cast<void*>(Audio::instance()), &mOwn, sizeof mOwn); }
    TableSwap(const TableSwap&) = delete;
    TableSwap& operator=(const TableSwap&) = delete;

private:
    void* mOwn = nullptr;
};

TEST_F(ClientTest, thereIsOneAudioObject) { EXPECT_EQ(Audio::instance(), Audio::instance()); }

// irregular: Audio::setAudioItemValue
TEST_F(ClientTest, theItemSetterIsVirtual) {
    answer({6});
    EXPECT_EQ(Audio::instance()->setAudioItemValue(0x200B, -1, 2, 3, 4), 6);
    EXPECT_EQ(sent(), only(requestOf(0x2053, {0x200B, -1, 2, 3, 4})));

    NotingAudio noting;
    Audio* const audio = &noting;
    EXPECT_EQ(audio->setAudioItemValue(1, 2, 3, 4, 5), 4711);
    EXPECT_EQ(sent(), kNothingSent);
}

// irregular: linux_tv_Audio_setAudioItemValue
TEST_F(ClientTest, theCItemSetterGoesThroughTheSlot) {
    const NotingAudio noting;
    {
        const TableSwap swap(noting);
        EXPECT_EQ(linux_tv_Audio_setAudioItemValue(0x200B, 1, 2, 3, 4), 4711);
    }
    EXPECT_EQ(NotingAudio::arguments, (std::vector<int>{0x200B, 1, 2, 3, 4}));
    EXPECT_EQ(sent(), kNothingSent);

    answer({6});
    EXPECT_EQ(linux_tv_Audio_setAudioItemValue(0x200B, 1, 2, 3, 4), 6);
    EXPECT_EQ(sent(), only(requestOf(0x2053, {0x200B, 1, 2, 3, 4})));
}

} // namespace
} // namespace kelutv::test
