#include "torture/operations/EveryShape.h"

#include <kelutv/Factory.h>
#include <kelutv/HdmiCEC.h>
#include <kelutv/KeluEEP.h>
#include <kelutv/Picture.h>
#include <kelutv/commands.h>
#include <kelutv/items.h>
#include <kelutv/linux_kelutv_audio.h>
#include <kelutv/linux_kelutv_factory.h>
#include <kelutv/linux_kelutv_picture.h>
#include <kelutv/linux_kelutv_sourcemanager.h>

#include <list>
#include <vector>

namespace kelutv::test {

namespace {

constexpr int kUntouched = 4711;
/** More than any of the answers here holds. */
constexpr std::size_t kRoom = 1024;

/** A list in a caller's buffer, and its count. */
struct Buffer {
    Buffer() {
        for (int& entry : entries) {
            entry = kUntouched;
        }
    }

    void tell(Outcome& o, int result) const {
        o.add("%d, count %d, %d %d %d", result, count, entries[0], entries[1], entries[2]);
    }

    int entries[kRoom];
    int count = kUntouched;
};

std::vector<Operation> listsInBuffers() {
    return {
        {"linux_tv_Picture_getPicModeEnable",
         {{requestOf(CMD_PICTURE_GETPICMODEENABLE, {1}), replyOf({0, 5, 6})}},
         [](Outcome& o) {
             Buffer list;
             list.tell(o, linux_tv_Picture_getPicModeEnable(1, list.entries, &list.count));
         },
         "0, count 2, 5 6 4711",
         {"-1, count 4711, 4711 4711 4711"}},
        // The second digital source, 2, is left out.
        {"linux_tv_SourceManager_getSourceList",
         {{requestOf(CMD_SOURCE_GETSOURCELIST), replyOf({0, 1, 2, 10})}},
         [](Outcome& o) {
             Buffer list;
             list.tell(o, linux_tv_SourceManager_getSourceList(list.entries, &list.count));
         },
         "0, count 2, 1 10 4711",
         {"-1, count 0, 4711 4711 4711"}},
        {"linux_tv_Audio_getNewOutputList",
         {{requestOf(CMD_AUDIO_COMMON_GET_ITEM_VALUE, {CMDID_AUDIO_GET_SUPPORTED_NEW_AUDIO_OUTPUT_LIST, 0, 0}),
           replyOf({0, 2, 7, 8})}},
         [](Outcome& o) {
             Buffer list;
             list.tell(o, linux_tv_Audio_getNewOutputList(list.entries, &list.count));
         },
         "0, count 2, 7 8 4711",
         {"-1, count 4711, 4711 4711 4711"}},
        {"linux_tv_Factory_getCountryList",
         {{requestOf(CMD_FACOTRY_COMMON_GET_ITEM_VALUE, {CMDID_FACTORY_GET_COUNTRY_LIST, 0, 0}),
           replyOf({0, 2, 7, 8})}},
         [](Outcome& o) {
             Buffer list;
             list.tell(o, linux_tv_Factory_getCountryList(list.entries, &list.count));
         },
         "0, count 2, 7 8 4711",
         {"-1, count 0, 4711 4711 4711"}},
        {"CKeluEEP::GetTVFlashEepMulti",
         {{requestOf(CMD_SYSTEM_GETFLASHEEPMULTI, {0x8A00, 2}), replyOf({0, 21, 22})}},
         [](Outcome& o) {
             Buffer block;
             block.tell(o, CKeluEEP::instance()->GetTVFlashEepMulti(0x8A00, 2, block.entries));
         },
         "0, count 4711, 21 22 4711",
         {"-1, count 4711, 4711 4711 4711"}},
        {"Factory::getSoundCurveCtlData",
         {{requestOf(CMD_FACTORY_GET_CTL_VOLUME), replyOf({0, 2, 31, 32})}},
         [](Outcome& o) {
             Buffer curve;
             curve.tell(o, Factory::instance()->getSoundCurveCtlData(curve.entries, &curve.count));
         },
         "0, count 2, 31 32 4711",
         {"-1, count 4711, 4711 4711 4711"}},
        {"Factory::getSoundCurve",
         {{requestOf(CMD_FACTORY_GETSOUNDCURVE, {2}), Wire::reply().i32(0).f64(0.5).f64(-2.25).bytes()}},
         [](Outcome& o) {
             double curve[] = {kUntouched, kUntouched, kUntouched};
             const int result = Factory::instance()->getSoundCurve(curve, 2);
             o.add("%d, %g %g %g", result, curve[0], curve[1], curve[2]);
         },
         "0, 0.5 -2.25 4711",
         {"-1, 4711 4711 4711"}},
    };
}

std::vector<Operation> listsByValue() {
    return {
        {"Picture::getPicModeEnable",
         {{requestOf(CMD_PICTURE_GETPICMODEENABLE, {3}), replyOf({0, 5, 6, 7})}},
         [](Outcome& o) {
             o.add("[");
             for (const int mode : Picture::instance()->getPicModeEnable(3)) {
                 o.add(" %d", mode);
             }
             o.add(" ]");
         },
         "[ 5 6 7 ]",
         {"[ ]"}},
        {"HdmiCEC::getDeviceListInfo",
         {{requestOf(CMD_CEC_GETDEVICELISTALLINFO), Wire::reply()
                                                        .i32(0)
                                                        .i32(4)
                                                        .i32(0)
                                                        .cstr("A player with a long name")
                                                        .cstr("1.0.0.0")
                                                        .cstr("HDMI 1: a player with a long name")
                                                        .i32(5)
                                                        .i32(1)
                                                        .cstr("Bar")
                                                        .cstr("2.0.0.0")
                                                        .cstr("HDMI 2")
                                                        .bytes()}},
         [](Outcome& o) {
             std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S> devices;
             o.add("%d", HdmiCEC::instance()->getDeviceListInfo(&devices));
             for (const KELU_TV_CEC_DEVICE_INFO_SORTED_S& device : devices) {
                 o.add(", %u %u '%s' %s", device.logAddr, device.hdmiDevPort, device.deVName.c_str(),
                       device.phyAddr.c_str());
             }
         },
         "0, 4 0 'A player with a long name' 1.0.0.0, 5 1 'Bar' 2.0.0.0",
         {"-1"}},
    };
}

} // namespace

std::vector<Operation> listOperations() {
    std::vector<Operation> all = listsInBuffers();
    const std::vector<Operation> others = listsByValue();
    all.insert(all.end(), others.begin(), others.end());
    return all;
}

} // namespace kelutv::test
