#include "torture/operations/EveryShape.h"

#include <kelutv/Audio.h>
#include <kelutv/Factory.h>
#include <kelutv/KeluEEP.h>
#include <kelutv/SourceManager.h>
#include <kelutv/commands.h>
#include <kelutv/items.h>
#include <kelutv/linux_kelutv_audio.h>
#include <kelutv/linux_kelutv_pcmplayer.h>
#include <kelutv/linux_kelutv_picture.h>

namespace kelutv::test {

namespace {

/** What outputs hold before a call. */
constexpr int kUntouched = 4711;
constexpr int kItemValues = 255;

Operation get(const char* name, const Bytes& request, int value, void (*call)(Outcome&), const char* right) {
    return {name, {{request, replyOf({0, value})}}, call, right, {"-1"}};
}

/** A reply of 255 numbers: `first`, then its successors. */
Bytes itemReply(int first) {
    Wire wire = Wire::reply().i32(0);
    for (int i = 0; i < kItemValues; ++i) {
        wire.i32(first + i);
    }
    return wire.bytes();
}

std::vector<Operation> values() {
    return {
        get(
            "Audio::getSoundMode", requestOf(CMD_AUDIO_GETSOUNDMODE), 3,
            [](Outcome& o) { o.add("%d", Audio::instance()->getSoundMode()); }, "3"),
        get(
            "linux_tv_Audio_getVolume", requestOf(CMD_AUDIO_GETVOLUME, {0}), 35,
            [](Outcome& o) { o.add("%d", linux_tv_Audio_getVolume(0)); }, "35"),
        get(
            "SourceManager::isNeedSelectSoucre", requestOf(CMD_SOURCE_ISNEEDSELECTSOURCE, {1, 2}), 6,
            [](Outcome& o) { o.add("%d", SourceManager::instance()->isNeedSelectSoucre(1, 2)); }, "6"),
        get(
            "Factory::getNT72315Command", requestOf(CMD_FACTORY_GET_NT72315_COMMAND, {1, 2, 3}), 9,
            [](Outcome& o) { o.add("%d", Factory::instance()->getNT72315Command(1, 2, 3)); }, "9"),
        get(
            "linux_tv_PCMPlayer_getStatus", requestOf(CMD_PCMPLAYER_GET_STATUS), 1,
            [](Outcome& o) { o.add("%d", static_cast<int>(linux_tv_PCMPlayer_getStatus())); }, "1"),
        get(
            "CKeluEEP::GetTVFlashEepByte", requestOf(CMD_SYSTEM_GETFLASHEEPBYTE, {0x8A00}), 77,
            [](Outcome& o) { o.add("%d", CKeluEEP::instance()->GetTVFlashEepByte(0x8A00)); }, "77"),
        // A failed read is "not 0", and so is true.
        {"linux_tv_Audio_getMute",
         {{requestOf(CMD_AUDIO_GETMUTE, {0}), replyOf({0, 0})}},
         [](Outcome& o) { o.add("%d", linux_tv_Audio_getMute(0)); },
         "0",
         {"1"}},
        // The index of the vivid mode is 2 in every table, so that a stream type that cannot be read changes nothing.
        {"linux_tv_Picture_getBLValueInPicmode",
         {{requestOf(CMD_PICTURE_GETHDRSTREAMTYPE), replyOf({0, 1})},
          {requestOf(CMD_PICTURE_GETBACKLIGHT_INPICMODE, {2}), replyOf({0, 60})}},
         [](Outcome& o) { o.add("%d", linux_tv_Picture_getBLValueInPicmode(1)); },
         "60",
         {"-1"}},
    };
}

std::vector<Operation> items() {
    return {
        {"linux_tv_Audio_getMaxVolume",
         {{requestOf(CMD_AUDIO_COMMON_GET_ITEM_VALUE, {CMDID_AUDIO_GET_MAX_VOLUME, 0, 0}), itemReply(80)}},
         [](Outcome& o) { o.add("%d", linux_tv_Audio_getMaxVolume(0)); },
         "80",
         {"0"}},
        {"linux_tv_Audio_getEQEnable",
         {{requestOf(CMD_AUDIO_COMMON_GET_ITEM_VALUE, {CMDID_AUDIO_GET_EQ_ENABLE, 0, 0}), itemReply(1)}},
         [](Outcome& o) {
             bool enable = false;
             const int result = linux_tv_Audio_getEQEnable(&enable);
             o.add("%d, %s", result, enable ? "true" : "false");
         },
         "0, true",
         {"-1, false"}},
        {"Audio::getAudioItemValue",
         {{requestOf(CMD_AUDIO_COMMON_GET_ITEM_VALUE, {0x2011, 1, 2}), itemReply(1000)}},
         [](Outcome& o) {
             int found[kItemValues + 1];
             for (int& value : found) {
                 value = kUntouched;
             }
             o.add("%d, ", Audio::instance()->getAudioItemValue(0x2011, 1, 2, found));
             o.add("%d...%d, %d", found[0], found[kItemValues - 1], found[kItemValues]);
         },
         "0, 1000...1254, 4711",
         {"-1, 4711...4711, 4711"}},
    };
}

std::vector<Operation> records() {
    return {
        {"SourceManager::getTimingInfo",
         {{requestOf(CMD_SOURCE_GETTIMMINGINFO), replyOf({0, 1920, 1080, 50, 1, 2, 3, 4, 0, 1})}},
         [](Outcome& o) {
             const TimingScreen t = SourceManager::instance()->getTimingInfo();
             o.add("%ux%u, %u, %d, %d, %d, %d, %d, %d", t.width, t.height, t.frameRate, t.interlace, t.formatHDMI,
                   t.format3d, t.colorSpace, t.MHL, t.graphicMode);
         },
         "1920x1080, 50, 1, 2, 3, 4, 0, 1",
         {"0x0, 0, 0, 0, 0, 0, 0, 0"}},
        {"linux_tv_Audio_getNRAttr",
         {{requestOf(CMD_AUDIO_GETNRATTR), replyOf({0, 1, 55})}},
         [](Outcome& o) {
             NRAttrData data{true, kUntouched};
             const int result = linux_tv_Audio_getNRAttr(&data);
             o.add("%d, %d, %d", result, data.onOff, data.value);
         },
         "0, 1, 55",
         {"0, 0, 0"}},
        {"Audio::getDRCAttr",
         {{requestOf(CMD_AUDIO_GETDRCATTR), replyOf({0, 11, 12})}},
         [](Outcome& o) {
             KELU_TV_SND_DRC_ATTR_S data{kUntouched, kUntouched};
             const int result = Audio::instance()->getDRCAttr(&data);
             o.add("%d, %d, %d", result, data.intthrhd, data.intLimit);
         },
         "0, 11, 12",
         {"-1, 4711, 4711"}},
    };
}

} // namespace

std::vector<Operation> numberOperations() {
    std::vector<Operation> all = values();
    for (const std::vector<Operation>& part : {items(), records()}) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

} // namespace kelutv::test
