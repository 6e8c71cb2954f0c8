#include "torture/operations/EveryShape.h"

#include <kelutv/Audio.h>
#include <kelutv/Factory.h>
#include <kelutv/KeluEEP.h>
#include <kelutv/Picture.h>
#include <kelutv/SystemSetting.h>
#include <kelutv/Video3D.h>
#include <kelutv/commands.h>
#include <kelutv/items.h>
#include <kelutv/link/TVBaseClient.h>
#include <kelutv/linux_kelutv_audio.h>

namespace kelutv::test {

namespace {

using android::TVBaseClient;

/** A command that no television knows, for the command calls that no operation uses. */
constexpr int kCommand = 0x7F00;

Operation set(const char* name, const Bytes& request, void (*call)(Outcome&)) {
    return {name, {{request, replyOf({0})}}, call, "0", {"-1"}};
}

std::vector<Operation> setsOfNumbers() {
    return {
        set("Audio::restoreSoundSets", requestOf(CMD_AUDIO_RESTORESOUNDSETS),
            [](Outcome& o) { o.add("%d", Audio::instance()->restoreSoundSets()); }),
        set("linux_tv_Audio_setSoundMode", requestOf(CMD_AUDIO_SETSOUNDMODE, {3}),
            [](Outcome& o) { o.add("%d", linux_tv_Audio_setSoundMode(3)); }),
        set("linux_tv_Audio_setVolume", requestOf(CMD_AUDIO_SETVOLUME, {0, 35}),
            [](Outcome& o) { o.add("%d", linux_tv_Audio_setVolume(0, 35)); }),
        set("Audio::setMute", requestOf(CMD_AUDIO_SETMUTE, {0, 1, 2}),
            [](Outcome& o) { o.add("%d", Audio::instance()->setMute(0, true, static_cast<MuteType>(2))); }),
        set("Factory::setWhiteBalanceColor", requestOf(CMD_FACTORY_SETWHITEBALANCECOLOR, {1, 255, 128, 0}),
            [](Outcome& o) { o.add("%d", Factory::instance()->setWhiteBalanceColor(true, 255, 128, 0)); }),
        set("Video3D::setVideoItemValue", requestOf(CMD_VIDEO_COMMON_SET_ITEM_VALUE, {0x3001, 1, 2, 3, 4}),
            [](Outcome& o) { o.add("%d", Video3D::instance()->setVideoItemValue(0x3001, 1, 2, 3, 4)); }),
        set("linux_tv_Audio_setMaxVolume",
            requestOf(CMD_AUDIO_COMMON_SET_ITEM_VALUE, {CMDID_AUDIO_SET_MAX_VOLUME, 0, 80, 0, 0}),
            [](Outcome& o) { o.add("%d", linux_tv_Audio_setMaxVolume(0, 80)); }),
        set("Audio::setPreScale", requestOf(CMD_AUDIO_SETPRESCALE, {1, 2, 3}),
            [](Outcome& o) {
                o.add("%d", Audio::instance()->setPreScale(1, {2, 3}));
            }),
        set("CKeluEEP::SetTVFlashEepMulti", requestOf(CMD_SYSTEM_SETFLASHEEPMULTI, {0x8A00, 3, 7, 8, 9}),
            [](Outcome& o) {
                int bytes[] = {7, 8, 9};
                o.add("%d", CKeluEEP::instance()->SetTVFlashEepMulti(0x8A00, bytes, 3));
            }),
        {"Factory::setLineODIndex",
         {{requestOf(CMD_FACTORY_SETLINEODINDEX, {2}), replyOf({0})}},
         [](Outcome& o) { o.add("%s", Factory::instance()->setLineODIndex(2) ? "true" : "false"); },
         "false",
         {"true"}},
        {"Audio::isDialogueEnhancement",
         {{requestOf(CMD_AUDIO_GETDIOLOGUEENHANCEMENT), replyOf({5})}},
         [](Outcome& o) { o.add("%d", Audio::instance()->isDialogueEnhancement()); },
         "5",
         {"-1"}},
    };
}

std::vector<Operation> setsOfTexts() {
    return {
        set("Factory::set24GUpgradePath", Wire::request(CMD_FACTORY_SET24GUPGRADEPATH).cstr("/usb/upgrade").bytes(),
            [](Outcome& o) {
                char path[] = "/usb/upgrade";
                o.add("%d", Factory::instance()->set24GUpgradePath(path));
            }),
        set("SystemSetting::setBootPicPath", Wire::request(CMD_SYSTEM_SETBOOTPICPATH).cstr("/boot.png").bytes(),
            [](Outcome& o) { o.add("%d", SystemSetting::instance()->setBootPicPath("/boot.png")); }),
        set("Factory::operateFlashEEPROM", Wire::request(CMD_FACTORY_OPERATEEROM).i32(3).cstr("/hotel").bytes(),
            [](Outcome& o) { o.add("%d", Factory::instance()->operateFlashEEPROM(3, "/hotel")); }),
        set("Picture::setCameraEnhancePictureMode",
            Wire::request(CMD_PICTURE_SET_CAMERA_ENHANCE_PICTURE_MODE).i32(1).cstr("package").cstr("class").bytes(),
            [](Outcome& o) { o.add("%d", Picture::instance()->setCameraEnhancePictureMode(1, "package", "class")); }),
        set("Factory::setLaserItemStringValue",
            Wire::request(CMD_FACOTRY_SET_LASER_ITEM_STRING_VALUE).i32(4).i32(5).cstr("laser").bytes(),
            [](Outcome& o) { o.add("%d", Factory::instance()->setLaserItemStringValue(4, 5, "laser")); }),
        set("Audio::setAudioItemStrValue",
            Wire::request(CMD_AUDIO_COMMON_SET_ITEM_STRVALUE).i32(0x2001).i32(6).cstr("item").i32(7).bytes(),
            [](Outcome& o) { o.add("%d", Audio::instance()->setAudioItemStrValue(0x2001, 6, 7, "item")); }),
        set("exeCmdSet(int, text, text, text, text)",
            Wire::request(kCommand).cstr("first").cstr("second").cstr("third").cstr("a longer fourth").bytes(),
            [](Outcome& o) {
                o.add("%d", TVBaseClient::self()->exeCmdSet(kCommand, "first", "second", "third", "a longer fourth"));
            }),
        set("exeCmdSet(int, text, int, int, int, int)",
            Wire::request(kCommand + 1).cstr("first").i32(2).i32(3).i32(4).i32(5).bytes(),
            [](Outcome& o) { o.add("%d", TVBaseClient::self()->exeCmdSet(kCommand + 1, "first", 2, 3, 4, 5)); }),
        set("SystemSetting::dtvControl",
            Wire::request(CMD_SYSTEM_DTV_CHANGE_CHANNEL).i32(9).i32(5).raw("tune", 5).bytes(),
            [](Outcome& o) {
                char data[] = "tune";
                o.add("%d", SystemSetting::instance()->dtvControl(9, data, 5));
            }),
    };
}

} // namespace

std::vector<Operation> setOperations() {
    std::vector<Operation> all = setsOfNumbers();
    const std::vector<Operation> texts = setsOfTexts();
    all.insert(all.end(), texts.begin(), texts.end());
    return all;
}

} // namespace kelutv::test
