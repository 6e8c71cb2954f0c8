#pragma once

#include "simulator/television/CommandHandler.h"

#include <vector>

namespace kelutv::simulator {

/** The handlers of all parts of the television. */
const std::vector<CommandHandler>& allHandlers();

/** What carries the request out; null when the command just sets or reads a state, or does nothing. */
Handler handlerOf(const wire::Request& request);

/** The command with a handler of its own that sets or reads the state; null when there is none. */
const wire::Command* handledCommand(const wire::StateKey& key, wire::StateRule::Access access);

} // namespace kelutv::simulator
