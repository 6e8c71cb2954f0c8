#include "client/devices/CecDevices.h"
#include "torture/memory/MemoryOperations.h"
#include "torture/memory/Seen.h"

#include <kelutv/Audio.h>
#include <kelutv/Factory.h>
#include <kelutv/HdmiCEC.h>
#include <kelutv/Picture.h>
#include <kelutv/SourceManager.h>
#include <kelutv/SystemSetting.h>
#include <kelutv/items.h>
#include <kelutv/linux_kelutv_audio.h>
#include <kelutv/linux_kelutv_factory.h>
#include <kelutv/linux_kelutv_hdmicec.h>
#include <kelutv/linux_kelutv_picture.h>
#include <kelutv/linux_kelutv_sourcemanager.h>

#include <kqcommon/ExtPort.h>

namespace kelutv::test {

namespace {

/** Too long for a string without memory of its own. */
constexpr char kName[] = "the name of an output, 40 bytes in length";

Wire reply() { return Wire::reply().i32(0); }

Bytes numbers(int count) {
    Wire wire = reply();
    for (int i = 1; i <= count; ++i) {
        wire.i32(i);
    }
    return wire.bytes();
}

Bytes points() {
    Wire wire = reply();
    for (int i = 1; i <= 50; ++i) {
        wire.f64(i);
    }
    return wire.bytes();
}

Bytes devices() {
    return devicesReply({{4, 1, "1.0.0.0 and more than sixteen", kName, "a list text of more than sixteen"},
                         {5, 2, "2.0.0.0", "player", "short"}})
        .bytes();
}

std::vector<Operation> lists() {
    return {
        observed("NumberList",
                 [](Seen& seen) {
                     seen.list = SourceManager::instance()->getSourceList();
                     seen.result = 0;
                 },
                 {{requestOf(0x7008), numbers(5)}}, "0 list=1,2,3,4,5", {"0"}),
        observed("NumberListIntoABuffer",
                 [](Seen& seen) {
                     seen.result = linux_tv_SourceManager_getAvailSourceList(seen.numbers.data(), &seen.count);
                 },
                 {{requestOf(0x7009), numbers(5)}}, "0 count=5 numbers=1,2,3,4,5", {"-1 count=0"}),
        observed("TextList",
                 [](Seen& seen) {
                     seen.texts = Audio::instance()->getOutputList();
                     seen.result = 0;
                 },
                 {{requestOf(0x2058), reply().cstr(kName).cstr("speaker").cstr(longText()).bytes()}},
                 std::string("0 texts=") + kName + ",speaker," + longText(), {"0"}),
        observed("NumberListOfAText",
                 [](Seen& seen) {
                     seen.result = linux_tv_Factory_getBurnKeyType(longText(), seen.numbers.data(), &seen.count);
                 },
                 {{Wire::request(0x90C9).cstr(longText()).bytes(), numbers(3)}}, "0 count=3 numbers=1,2,3",
                 {"-1 count=0"}),
        observed("DeviceList", [](Seen& seen) { seen.result = HdmiCEC::instance()->getDeviceListInfo(&seen.devices); },
                 {{requestOf(0x5018), devices()}},
                 std::string("0 devices=4/1/") + kName +
                     "/1.0.0.0 and more than sixteen/a list text of more than sixteen," + "5/2/player/2.0.0.0/short",
                 {"-1"}),
        observed("PortOfADevice",
                 [](Seen& seen) {
                     SExtPortPlugInOutInfo port{};
                     seen.result = linux_tv_HdmiCEC_getDevicePortByIndex(&port, 5);
                     seen.count = static_cast<int>(port.externalPort.inputDev.hdmiDev);
                 },
                 {{requestOf(0x5018), devices()}}, "0 count=2", {"-1 count=0"}),
    };
}

std::vector<Operation> itemsAndRecords() {
    return {
        observed("Item",
                 [](Seen& seen) { seen.result = Audio::instance()->getAudioItemValue(3, 1, 2, seen.numbers.data()); },
                 {{requestOf(0x2054, {3, 1, 2}), numbers(255)}}, "0 numbers=" + numbersUpTo(255), {"-1"}),
        observed("ListItem",
                 [](Seen& seen) { seen.result = linux_tv_Audio_getNewOutputList(seen.numbers.data(), &seen.count); },
                 {{requestOf(0x2054, {CMDID_AUDIO_GET_SUPPORTED_NEW_AUDIO_OUTPUT_LIST, 0, 0}),
                   reply().i32(2).i32(1).i32(2).raw(std::string(252 * 4, '\0').data(), 252 * 4).bytes()}},
                 "0 count=2 numbers=1,2", {"-1"}),
        observed("ValueItem", [](Seen& seen) { seen.result = linux_tv_Audio_getMaxVolume(2); },
                 {{requestOf(0x2054, {CMDID_AUDIO_GET_MAX_VOLUME, 2, 0}), numbers(255)}}, "1", {"0"}),
        observed("Record", [](Seen& seen) { seen.result = Factory::instance()->getSoundPEQ().FO1_FINE; },
                 {{requestOf(0x9062), numbers(100)}}, "2", {"0"}),
        observed("Points", [](Seen& seen) { seen.result = Factory::instance()->getSoundCurve(seen.points.data(), 50); },
                 {{requestOf(0x9060, {50}), points()}}, "0 points=" + numbersUpTo(50), {"-1"}),
        observed("CountedNumbers",
                 [](Seen& seen) {
                     seen.result = Factory::instance()->getSoundCurveCtlData(seen.numbers.data(), &seen.count);
                 },
                 {{requestOf(0x90CC), reply().i32(3).i32(1).i32(2).i32(3).raw(longText(), 300).bytes()}},
                 "0 count=3 numbers=1,2,3", {"-1"}),
        observed(
            "Block",
            [](Seen& seen) { seen.result = SystemSetting::instance()->getFlashEepMulti(16, seen.numbers.data(), 100); },
            {{requestOf(0x8013, {16, 100}), numbers(100)}}, "0 numbers=" + numbersUpTo(100), {"-1"}),
        observed("TextItem",
                 [](Seen& seen) {
                     seen.result = SystemSetting::instance()->getSystemItemStrValue(3, 1, 2, seen.text.data());
                 },
                 {{requestOf(0x8049, {3, 1, 2}), reply().cstr(longText()).bytes()}},
                 std::string("0 text=") + longText(), {"-1"}),
        observed("TextWithAStandIn",
                 [](Seen& seen) { seen.result = Factory::instance()->getBarCode(seen.text.data()); },
                 {{requestOf(0x905A), reply().cstr(longText()).bytes()}}, std::string("0 text=") + longText(),
                 {"0 text=error barcode"}),
        observed(
            "ModeOfTwoReads", [](Seen& seen) { seen.result = linux_tv_Picture_getPictureMode(); },
            {{requestOf(0x1053), replyOf({0, KELU_TV_HDR_TYPE_DOLBY_HDR})},
             {requestOf(0x1003), replyOf({0, KELU_TV_PIC_MODE_DOLBY_DARK})}},
            std::to_string(KELU_TV_PIC_MODE_DOBLY_VISION_MOVIE_DARK),
            // Without the stream type alone the index is one of standard dynamic range, in which it is that of films.
            {std::to_string(KELU_TV_PIC_MODE_STANDARD), std::to_string(KELU_TV_PIC_MODE_MOVIE)}),
    };
}

} // namespace

std::vector<Operation> readerOperations() {
    std::vector<Operation> operations = lists();
    for (const Operation& operation : itemsAndRecords()) {
        operations.push_back(operation);
    }
    return operations;
}

} // namespace kelutv::test
