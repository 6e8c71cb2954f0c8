#include "tools/kelutv/calls/Callbacks.h"

#include "tools/kelutv/text/Hex.h"

#include <kelutv/linux_kelutv_notify.h>
#include <kelutv/vbi_types.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

namespace kelutv::tool {

namespace {

constexpr unsigned int kMostShown = 64;

std::string shown(const void* data, unsigned int length) {
    const auto* const bytes = static_cast<const std::uint8_t*>(data);
    if (bytes == nullptr || length == 0) {
        return "(nothing)";
    }
    return hexOf({bytes, bytes + std::min(length, kMostShown)}) + (length > kMostShown ? "..." : "");
}

void printEvent(int event, void* data, unsigned int length, void* /*previous*/) {
    std::printf("event 0x%x %s\n", static_cast<unsigned int>(event), shown(data, length).c_str());
    std::fflush(stdout);
}

void printVbi(unsigned int type, void* data, unsigned int length) {
    std::printf("vbi %u %s\n", type, shown(data, length).c_str());
    std::fflush(stdout);
}

} // namespace

void storePrinter(const std::string& type, std::uint8_t* to) {
    const tv_NotifyFun_Callback event = printEvent;
    const KELU_VBI_DATA_CALLBACK vbi = printVbi;
    if (type == "KELU_VBI_DATA_CALLBACK") {
        std::memcpy(to, &vbi, sizeof vbi);
    } else {
        std::memcpy(to, &event, sizeof event);
    }
}

} // namespace kelutv::tool
