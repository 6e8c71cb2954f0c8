#include "ModuleList.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace keluem {

std::optional<ModuleList> ModuleList::of(const void* packet, std::size_t size) {
    std::uint32_t head[std::size(kEverythingPacket)];
    if (size < sizeof(head) || size > kMaxPacket) {
        return std::nullopt;
    }
    std::memcpy(head, packet, sizeof(head));
    const std::size_t body = size - sizeof(head);
    const std::uint32_t count = head[1];
    if (head[0] != kVersion) {
        return std::nullopt;
    }
    if (count == kEverything) {
        return body == 0 ? std::optional(ModuleList()) : std::nullopt;
    }
    if (count > kMaxModules || body != count * sizeof(std::uint32_t)) {
        return std::nullopt;
    }
    std::vector<std::uint32_t> modules(count);
    if (count > 0) {
        std::memcpy(modules.data(), static_cast<const unsigned char*>(packet) + sizeof(head), body);
    }
    return ModuleList(std::move(modules));
}

std::vector<std::uint32_t> ModuleList::packet() const {
    std::vector<std::uint32_t> words{kVersion, kEverything};
    if (mModules) {
        words[1] = static_cast<std::uint32_t>(mModules->size());
        words.insert(words.end(), mModules->begin(), mModules->end());
    }
    return words;
}

bool ModuleList::wants(std::uint32_t module) const {
    return !mModules || std::find(mModules->begin(), mModules->end(), module) != mModules->end();
}

} // namespace keluem
