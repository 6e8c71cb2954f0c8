#pragma once

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <vector>

namespace foreign {

/** Commands to the driver, one after the other. */
class Commands {
public:
    Commands& add(std::uint32_t command) { return append(&command, sizeof(command)); }
    template <typename Payload> Commands& add(std::uint32_t command, const Payload& payload) {
        return add(command).append(&payload, sizeof(payload));
    }

    /** Hands them over. False when the driver refuses. */
    bool write(int device) const;

private:
    Commands& append(const void* bytes, std::size_t length);

    std::vector<std::uint8_t> mBytes;
};

/** One thing that the driver says; command 0 when it refuses to say more. */
struct Notice {
    std::uint32_t command = 0;
    std::vector<std::uint8_t> payload;

    template <typename Payload> Payload as() const {
        Payload value{};
        std::memcpy(&value, payload.data(), payload.size() < sizeof(value) ? payload.size() : sizeof(value));
        return value;
    }
};

/** Reads until one of these is said to the calling thread. */
Notice awaitNotice(int device, std::initializer_list<std::uint32_t> wanted);

} // namespace foreign
