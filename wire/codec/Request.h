#pragma once

#include "wire/Interface.h"
#include "wire/codec/ByteReader.h"
#include "wire/codec/Refusal.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kelutv::wire {

/** One request as far as it could be read. */
struct Request {
    std::size_t size = 0;
    std::optional<std::int32_t> number;
    /** Where what follows the command begins, in bytes. */
    std::size_t argumentsAt = 0;
    const Command* command = nullptr;
    /** What the command does; null until the request is read to its end. */
    const Operation* operation = nullptr;
    Arguments arguments;
    std::optional<Refusal> refusal;
};

/** Reads a request from its token on, in any form that `readToken` knows. */
Request readRequest(ByteReader& data);

/** Reads a request from its command on; the reader stands there, behind the token. */
Request readRequestBehindToken(ByteReader& data);

/** A request of these bytes that names another interface. */
Request requestWithWrongToken(const ByteReader& data);

} // namespace kelutv::wire
