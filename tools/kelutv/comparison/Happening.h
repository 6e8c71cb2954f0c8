#pragma once

#include "recording/Line.h"
#include "tools/kelutv/decoding/Decoding.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kelutv::tool {

/** What happened in a program, without when, where and how long. */
struct Happening {
    enum class Kind : std::uint8_t { Call, Event, Loss };

    Kind kind = Kind::Loss;
    /** Of a request, where it is not the one that its platform writes. */
    recording::Bytes token = {};
    /** Whether the request begins with a token, which is left out of its bytes. */
    bool hasToken = false;
    /** The request from its command on, or the payload of an event. */
    recording::Bytes bytes = {};
    /** The transport's status, or the identifier of an event. */
    std::int32_t number = 0;
    recording::Bytes reply = {};
};

/**
 * What a line of a recording tells of; nothing for lines that tell of no happening.
 *
 * @param token which the header of its section names
 */
std::optional<Happening> happeningOf(const recording::Line& line, const recording::Bytes& token);

/** The request of a call. */
DecodedRequest requestOf(const Happening& call);

/** Of an event. */
std::uint32_t identifierOf(const Happening& event);

/** What it is in all its parts: `CMD_AUDIO_GETVOLUME(channel=0 ...) -> 0: 35`. */
std::string textOf(const Happening& happening);

} // namespace kelutv::tool
