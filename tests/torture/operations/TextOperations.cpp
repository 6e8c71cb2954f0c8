#include "torture/operations/EveryShape.h"

#include <kelutv/Audio.h>
#include <kelutv/Factory.h>
#include <kelutv/SystemSetting.h>
#include <kelutv/commands.h>
#include <kelutv/linux_kelutv_factory.h>

#include <cstring>

namespace kelutv::test {

namespace {

constexpr std::size_t kRoom = 256;

/** A caller's buffer for a text. */
struct TextBuffer {
    char text[kRoom] = "untouched";
};

std::vector<Operation> textsInBuffers() {
    return {
        {"Audio::getAudioItemStrValue",
         {{requestOf(CMD_AUDIO_COMMON_GET_ITEM_STRVALUE, {0x2003, 1, 2}), Wire::reply().i32(0).cstr("item").bytes()}},
         [](Outcome& o) {
             TextBuffer found;
             const int result = Audio::instance()->getAudioItemStrValue(0x2003, 1, 2, found.text);
             o.add("%d, '%s'", result, found.text);
         },
         "0, 'item'",
         {"-1, 'untouched'"}},
        {"Factory::getBarCode",
         {{requestOf(CMD_FACTORY_GETBARCODE), Wire::reply().i32(0).cstr("4006381333931").bytes()}},
         [](Outcome& o) {
             TextBuffer found;
             const int result = Factory::instance()->getBarCode(found.text);
             o.add("%d, '%s'", result, found.text);
         },
         "0, '4006381333931'",
         {"0, 'error barcode'"}},
        {"SystemSetting::sendCmdToTVServer",
         {{Wire::request(CMD_SYSTEM_DTV_CMD_TO_TV).i32(3).i32(5).i32(8).raw("data", 5).bytes(),
           Wire::reply().i32(0).i32(6).raw("reply", 6).bytes()}},
         [](Outcome& o) {
             char input[] = "data";
             char output[kRoom] = "untouched";
             int size = 8;
             const int result = SystemSetting::instance()->sendCmdToTVServer(3, input, 5, output, &size);
             o.add("%d, size %d, '%s'", result, size, output);
         },
         "0, size 6, 'reply'",
         {"-1, size 8, 'untouched'"}},
        {"Factory::exDevInserted",
         {{Wire::request(CMD_FACTORY_EXTERNAL_DEV_INSERT).cstr("usb").bytes(), replyOf({0, 4})}},
         [](Outcome& o) { o.add("%d", Factory::instance()->exDevInserted("usb")); },
         "4",
         {"-1"}},
    };
}

std::vector<Operation> listsOfTexts() {
    const Bytes names = Wire::reply().i32(0).cstr("Speaker").cstr("A name that is not short").bytes();
    return {
        {"Audio::getOutputList",
         {{requestOf(CMDID_AUDIO_GET_OUTPUT_LIST), names}},
         [](Outcome& o) {
             o.add("[");
             for (const std::string& name : Audio::instance()->getOutputList()) {
                 o.add(" '%s'", name.c_str());
             }
             o.add(" ]");
         },
         "[ 'Speaker' 'A name that is not short' ]",
         {"[ ]"}},
        // Names are cut to ten bytes, each at the start of a record of its own.
        {"linux_tv_Factory_getLineODListTable",
         {{requestOf(CMD_FACTORY_GETLINEODLIST), names}},
         [](Outcome& o) {
             BOE_OD_TableInfo tables[2];
             std::memset(tables, '-', sizeof tables);
             const int result = linux_tv_Factory_getLineODListTable(tables);
             const auto* first = reinterpret_cast<const char*>(&tables[0]);
             o.add("%d, '%.8s' '%.11s'", result, first, first + sizeof(BOE_OD_TableInfo));
         },
         "0, 'Speaker' 'A name tha-'",
         {"-1, '--------' '-----------'"}},
    };
}

} // namespace

std::vector<Operation> textOperations() {
    std::vector<Operation> all = textsInBuffers();
    const std::vector<Operation> lists = listsOfTexts();
    all.insert(all.end(), lists.begin(), lists.end());
    return all;
}

} // namespace kelutv::test
