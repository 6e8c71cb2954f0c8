#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace keluem {

/** Most modules that one process may listen to. */
constexpr std::size_t kMaxModules = 1024;

/**
 * Which modules a subscriber wants, as it tells every publisher that is connected to it.
 *
 * It travels as one packet of 32-bit words: the version of the protocol, the number of modules or `kEverything`, and
 * the modules. A later list replaces the one before.
 */
class ModuleList {
public:
    static constexpr std::uint32_t kVersion = 1;
    static constexpr std::uint32_t kEverything = 0xFFFFFFFF;
    static constexpr std::uint32_t kEverythingPacket[] = {kVersion, kEverything};
    static constexpr std::size_t kMaxPacket = sizeof(kEverythingPacket) + kMaxModules * sizeof(std::uint32_t);

    /** A list that wants every module. */
    ModuleList() = default;
    /** A list that wants these modules, at most `kMaxModules`. */
    explicit ModuleList(std::vector<std::uint32_t> modules) : mModules(std::move(modules)) {}

    /** The list in a packet; nothing when the packet holds none. Throws std::bad_alloc. */
    static std::optional<ModuleList> of(const void* packet, std::size_t size);

    /** The packet that tells of the list. Throws std::bad_alloc. */
    std::vector<std::uint32_t> packet() const;

    bool wants(std::uint32_t module) const;

private:
    std::optional<std::vector<std::uint32_t>> mModules; // everything, when absent
};

} // namespace keluem
