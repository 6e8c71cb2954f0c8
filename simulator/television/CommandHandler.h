#pragma once

#include "simulator/television/Equipment.h"
#include "wire/Rows.h"
#include "wire/codec/Reply.h"
#include "wire/codec/Request.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>

namespace kelutv::simulator {

/** Carries out a request, which has been read to its end. */
using Handler = wire::Reply (*)(Equipment& equipment, const wire::Request& request);

/** A command that does more, or other, than setting or reading a state, and what carries it out. */
struct CommandHandler {
    std::int32_t command;
    Handler handler;
    /** Set when the handler carries out one item of the command only. */
    std::optional<std::int32_t> item = std::nullopt;
};

using CommandHandlers = wire::Rows<CommandHandler>;

/** @name The handlers of each part of the television. @{ */
CommandHandlers cecHandlers();
CommandHandlers eepHandlers();
CommandHandlers factoryHandlers();
CommandHandlers powerHandlers();
CommandHandlers settingHandlers();
CommandHandlers teletextHandlers();
/** @} */

/** The number in the request item at `index`. */
std::int32_t numberAt(const wire::Request& request, std::size_t index);

/** A reply with one number. */
wire::Reply numberReply(std::int32_t number);

/** Refuses a request for a system error, which is printed on standard error, too. */
wire::Reply failureReply(wire::Result result, const std::exception& error);

} // namespace kelutv::simulator
