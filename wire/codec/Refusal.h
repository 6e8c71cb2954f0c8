#pragma once

#include <cstdint>
#include <string>

namespace kelutv::wire {

/** The result word of a refused request; a request that is refused changes nothing. */
enum class Result : std::int32_t {
    Ok = 0,
    WrongToken = -101,
    UnknownCommand = -102,
    MissingData = -103,
    UnterminatedText = -104,
    TooMuchData = -105,
    UnknownItem = -106,
    OutOfRange = -107,
    UnknownSource = -108,
    UnknownDevice = -109,
    NotStored = -110,
    NotRestored = -111,
    NotProvided = -112,
    Failed = -113,
    NotRecorded = -114,
};

/** Why a request was refused, in a number and in words. */
struct Refusal {
    Result result;
    std::string text;
};

} // namespace kelutv::wire
