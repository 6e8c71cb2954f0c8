#include "Shapes.h"

#include <binder/IInterface.h>
#include <kelutv/Audio.h>
#include <kelutv/Factory.h>
#include <kelutv/HdmiCEC.h>
#include <kelutv/KeluEEP.h>
#include <kelutv/Picture.h>
#include <kelutv/SourceManager.h>
#include <kelutv/SystemSetting.h>
#include <kelutv/commands.h>
#include <kelutv/items.h>
#include <kelutv/link/TVBaseClient.h>
#include <kelutv/linux_kelutv_audio.h>

#include <cstring>

namespace kelutv::bench {

namespace {

using android::IBinder;
using android::Parcel;
using android::sp;
using android::String16;
using android::TVBaseClient;

constexpr int kItemValues = 255;
constexpr int kChannel = KELU_TV_AUDIO_CHANNEL_SPEAKER;
constexpr int kVolume = 35;
/** A command that no operation sends, for the command call that none uses. */
constexpr int kTextsCommand = 0x7F00;
constexpr char kBarCode[] = "4006381333931";
constexpr char kReply[] = "reply";

/** The numbers 1, 2, 3 and so on. */
template <int count> void numbers(Parcel& reply) {
    for (int number = 1; number <= count; ++number) {
        reply.writeInt32(number);
    }
}

/** A number of entries, then as many. */
template <int count> void countedNumbers(Parcel& reply) {
    reply.writeInt32(count);
    numbers<count>(reply);
}

void number(Parcel& reply) { reply.writeInt32(kVolume); }

void item(Parcel& reply) { numbers<kItemValues>(reply); }

void barCode(Parcel& reply) { reply.writeCString(kBarCode); }

void names(Parcel& reply) {
    reply.writeCString("Speaker");
    reply.writeCString("A name that is not short");
}

void curve(Parcel& reply) {
    reply.writeDouble(0.5);
    reply.writeDouble(-2.25);
}

void bytes(Parcel& reply) {
    reply.writeInt32(sizeof kReply);
    reply.write(kReply, sizeof kReply);
}

void devices(Parcel& reply) {
    for (const int address : {4, 5}) {
        reply.writeInt32(address);
        reply.writeInt32(0);
        reply.writeCString("A player with a long name");
        reply.writeCString("1.0.0.0");
        reply.writeCString("HDMI 1: a player with a long name");
    }
}

/** What there is below the client: a finished request, and the service's proxy. */
struct Finished {
    Finished() {
        request.writeInterfaceToken(String16("android.ITVBaseService"));
        request.writeInt32(CMD_AUDIO_SETVOLUME);
        request.writeInt32(kChannel);
        request.writeInt32(kVolume);
    }

    Parcel request;
    sp<IBinder> service = android::IInterface::asBinder(TVBaseClient::self()->getBpTvbaseService());
};

bool transactFinished() {
    static const Finished finished;
    Parcel reply;
    return finished.service->transact(IBinder::FIRST_CALL_TRANSACTION, finished.request, &reply) == android::NO_ERROR &&
           reply.readInt32() == 0;
}

bool readItem() {
    int values[kItemValues];
    return linux_tv_Audio_getAudioItemValue(CMDID_AUDIO_GET_MAX_VOLUME, 0, 0, values) == 0 &&
           values[kItemValues - 1] == kItemValues;
}

bool readListInBuffer() {
    int list[kItemValues];
    int size = 0;
    return Factory::instance()->getSoundCurveCtlData(list, &size) == 0 && size == 3;
}

bool writeBlock() {
    int block[] = {7, 8, 9};
    return CKeluEEP::instance()->SetTVFlashEepMulti(0x8A00, block, 3) == 0;
}

bool readBlock() {
    int block[16];
    return CKeluEEP::instance()->GetTVFlashEepMulti(0x8A00, 16, block) == 0 && block[15] == 16;
}

bool readDoubles() {
    double values[2];
    return Factory::instance()->getSoundCurve(values, 2) == 0;
}

bool readText() {
    char text[64];
    return Factory::instance()->getBarCode(text) == 0 && std::strcmp(text, kBarCode) == 0;
}

bool writeTexts() {
    return TVBaseClient::self()->exeCmdSet(kTextsCommand, "first", "second", "third", "a longer fourth") == 0;
}

bool writeBytes() {
    char data[] = "tune";
    return SystemSetting::instance()->dtvControl(9, data, sizeof data) == 0;
}

bool readRecords() {
    std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S> found;
    return HdmiCEC::instance()->getDeviceListInfo(&found) == 0 && found.size() == 2;
}

bool exchangeBytes() {
    char input[] = "data";
    char output[64];
    int size = sizeof output;
    return SystemSetting::instance()->sendCmdToTVServer(3, input, sizeof input, output, &size) == 0 &&
           size == sizeof kReply;
}

} // namespace

const std::vector<Shape>& everyShape() {
    static const std::vector<Shape> shapes{
        {"finished_request", CMD_AUDIO_SETVOLUME, transactFinished, nullptr},
        {"set_two_ints", CMD_AUDIO_SETVOLUME, [] { return linux_tv_Audio_setVolume(kChannel, kVolume) == 0; }, nullptr},
        {"set_nothing", CMD_AUDIO_RESTORESOUNDSETS, [] { return Audio::instance()->restoreSoundSets() == 0; }, nullptr},
        {"get_int", CMD_AUDIO_GETVOLUME, [] { return linux_tv_Audio_getVolume(kChannel) == kVolume; }, number},
        {"set_item", CMD_AUDIO_COMMON_SET_ITEM_VALUE, [] { return linux_tv_Audio_setMaxVolume(kChannel, 80) == 0; },
         nullptr},
        {"read_item", CMD_AUDIO_COMMON_GET_ITEM_VALUE, readItem, item},
        {"read_item_value", CMD_AUDIO_COMMON_GET_ITEM_VALUE, [] { return linux_tv_Audio_getMaxVolume(kChannel) == 1; },
         item},
        {"text_in", CMD_SYSTEM_SETBOOTPICPATH,
         [] { return SystemSetting::instance()->setBootPicPath("/boot.png") == 0; }, nullptr},
        {"texts_in", kTextsCommand, writeTexts, nullptr},
        {"text_in_int_out", CMD_FACTORY_EXTERNAL_DEV_INSERT,
         [] { return Factory::instance()->exDevInserted("usb") == kVolume; }, number},
        {"text_out", CMD_FACTORY_GETBARCODE, readText, barCode},
        {"texts_out", CMDID_AUDIO_GET_OUTPUT_LIST, [] { return Audio::instance()->getOutputList().size() == 2; },
         names},
        {"parcel_in", CMD_AUDIO_SETPRESCALE,
         [] {
             return Audio::instance()->setPreScale(1, {2, 3}) == 0;
         },
         nullptr},
        {"record_out", CMD_SOURCE_GETTIMMINGINFO,
         [] { return SourceManager::instance()->getTimingInfo().frameRate == 3; }, numbers<9>},
        {"records_out", CMD_CEC_GETDEVICELISTALLINFO, readRecords, devices},
        {"block_in", CMD_SYSTEM_SETFLASHEEPMULTI, writeBlock, nullptr},
        {"block_out", CMD_SYSTEM_GETFLASHEEPMULTI, readBlock, numbers<16>},
        {"list_out", CMD_PICTURE_GETPICMODEENABLE, [] { return Picture::instance()->getPicModeEnable(3).size() == 5; },
         numbers<5>},
        {"list_in_buffer", CMD_FACTORY_GET_CTL_VOLUME, readListInBuffer, countedNumbers<3>},
        {"doubles_out", CMD_FACTORY_GETSOUNDCURVE, readDoubles, curve},
        {"bytes_in", CMD_SYSTEM_DTV_CHANGE_CHANNEL, writeBytes, nullptr},
        {"bytes_in_and_out", CMD_SYSTEM_DTV_CMD_TO_TV, exchangeBytes, bytes},
    };
    return shapes;
}

} // namespace kelutv::bench
