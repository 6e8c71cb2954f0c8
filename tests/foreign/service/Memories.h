#pragma once

#include "wire/codec/Reply.h"
#include "wire/codec/Request.h"

#include <array>
#include <cstdint>
#include <optional>

namespace foreign {

/** The EEP and the flash EEP, which keep what is written to them. */
class Memories {
public:
    /** The reply to a request that reads or writes one of them; nothing for any other. */
    std::optional<kelutv::wire::Reply> answer(const kelutv::wire::Request& request);

private:
    static constexpr std::int64_t kSize = 0x10000;
    using Memory = std::array<std::int32_t, kSize>;

    static kelutv::wire::Reply read(const Memory& memory, const kelutv::wire::Request& request);
    static kelutv::wire::Reply write(Memory& memory, const kelutv::wire::Request& request);

    Memory mEep{};
    Memory mFlashEep{};
};

} // namespace foreign
