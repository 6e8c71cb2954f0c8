#pragma once

#include "tools/kelutv/compliance/clients/Client.h"
#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"

namespace kelutv::tool::compliance {

/** Waits until the client says that it listens. @throws ToolError when it does not */
void requireListening(Client& client);

/** What a client comes to that changes something, listens, and puts it back. */
Outcome changeAndListen(const Terms& terms);

} // namespace kelutv::tool::compliance
