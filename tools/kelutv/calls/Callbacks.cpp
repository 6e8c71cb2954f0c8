#include "tools/kelutv/calls/Callbacks.h"

#include "tools/kelutv/output/Json.h"
#include "tools/kelutv/output/Streams.h"
#include "tools/kelutv/text/Hex.h"

#include <kelutv/linux_kelutv_notify.h>
#include <kelutv/vbi_types.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdio>
#include <cstring>

namespace kelutv::tool {

namespace {

constexpr std::size_t kMostShown = 64;

std::atomic<bool> documentsWanted{false};

Bytes bytesOf(const void* data, unsigned int length) {
    const auto* const bytes = static_cast<const std::uint8_t*>(data);
    return bytes == nullptr ? Bytes() : Bytes(bytes, bytes + length);
}

std::string shown(const Bytes& bytes) {
    if (bytes.empty()) {
        return "(nothing)";
    }
    const auto most = static_cast<std::ptrdiff_t>(std::min(bytes.size(), kMostShown));
    return hexOf({bytes.begin(), bytes.begin() + most}) + (bytes.size() > kMostShown ? "..." : "");
}

void print(const std::string& line) {
    std::fprintf(ownOutput(), "%s\n", line.c_str());
    std::fflush(ownOutput());
}

void printEvent(int event, void* data, unsigned int length, void* /*previous*/) {
    const Bytes payload = bytesOf(data, length);
    char number[32];
    std::snprintf(number, sizeof number, "event 0x%x ", static_cast<unsigned int>(event));
    print(documentsWanted ? Json{{"callback", "event"}, {"event", event}, {"payload", hexOf(payload)}}.dump()
                          : number + shown(payload));
}

void printVbi(unsigned int type, void* data, unsigned int length) {
    const Bytes payload = bytesOf(data, length);
    print(documentsWanted ? Json{{"callback", "vbi"}, {"type", type}, {"payload", hexOf(payload)}}.dump()
                          : "vbi " + std::to_string(type) + ' ' + shown(payload));
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

void printCallbacksAsJson(bool asJson) { documentsWanted = asJson; }

} // namespace kelutv::tool
