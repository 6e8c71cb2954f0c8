#pragma once

#include "wire/Interface.h"
#include "wire/codec/Refusal.h"

#include <binder/Parcel.h>

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

Request readRequest(const android::Parcel& data);

} // namespace kelutv::wire
