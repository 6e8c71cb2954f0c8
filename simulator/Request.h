#pragma once

#include "Results.h"
#include "Table.h"

#include <binder/Parcel.h>

#include <cstdint>
#include <optional>
#include <string>

namespace simulator {

/** Why a request was refused, in a number and in words. */
struct Fault {
    Result result;
    std::string text;
};

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
    std::optional<Fault> fault;
};

Request readRequest(const android::Parcel& data);

} // namespace simulator
