#include <kelutv/kelutv.h>

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <link.h>

#include <type_traits>

namespace {

static_assert(std::is_polymorphic_v<Audio>);
static_assert(!std::has_virtual_destructor_v<Audio>);
static_assert(sizeof(Audio) == sizeof(void*));
static_assert(!std::is_polymorphic_v<PCMPlayer>);
static_assert(std::is_empty_v<PCMPlayer>);
static_assert(!std::is_polymorphic_v<Picture>);
static_assert(std::is_empty_v<Picture>);
static_assert(std::is_same_v<decltype(&Picture::getAvailAspectList), std::list<int> (Picture::*)()>);
static_assert(std::is_same_v<decltype(&Audio::setMute), int (Audio::*)(int, bool, MuteType)>);
static_assert(std::is_same_v<decltype(&Audio::setSubwooferGeq), int (Audio::*)(KELU_TV_SUBWOOFER_GEQ)>);

class RecordingAudio : public Audio {
public:
    int setAudioItemValue(int cmdID, int param1, int param2, int param3, int param4) override {
        item = cmdID;
        sum = param1 + param2 + param3 + param4;
        return 77;
    }

    int item = 0;
    int sum = 0;
};

TEST(AudioClass, ItemSetterGoesThroughTheVirtualSlot) {
    RecordingAudio derived;
    Audio& audio = derived;
    EXPECT_EQ(audio.setAudioItemValue(CMDID_AUDIO_SET_MAX_VOLUME, 1, 10, 100, 1000), 77);
    EXPECT_EQ(derived.item, CMDID_AUDIO_SET_MAX_VOLUME);
    EXPECT_EQ(derived.sum, 1111);
}

TEST(AudioClass, TableHasOneSlotBehindItsTwoHeaderWords) {
    void* table = dlsym(RTLD_DEFAULT, "_ZTV5Audio");
    ASSERT_NE(table, nullptr);
    Dl_info info{};
    const ElfW(Sym)* symbol = nullptr;
    ASSERT_NE(dladdr1(table, &info, reinterpret_cast<void**>(const_cast<ElfW(Sym)**>(&symbol)), RTLD_DL_SYMENT), 0);
    ASSERT_NE(symbol, nullptr);
    EXPECT_EQ(symbol->st_size, 3 * sizeof(void*));
}

TEST(AudioClass, InstanceIsOne) {
    EXPECT_EQ(Audio::instance(), Audio::instance());
    EXPECT_EQ(PCMPlayer::instance(), PCMPlayer::instance());
    EXPECT_EQ(Picture::instance(), Picture::instance());
    EXPECT_NE(Audio::instance(), nullptr);
}

} // namespace
