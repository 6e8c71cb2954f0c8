#pragma once

#include "fuzz/support/Input.h"

#include "wire/Interface.h"

namespace kelutv::fuzz {

/** What a request of the operation carries behind its command; numbers are `first`, blocks have three entries. */
Bytes argumentsOf(const wire::Operation& operation, std::int32_t first);

/** The interface's token alone, in the form of binder level 28, 29 or 30. */
Bytes tokenOf(int level);

/** A whole request: the interface's token, the command, the arguments. */
Bytes requestOf(std::int32_t command, const Bytes& arguments);

/** A reply of the operation's form. */
Bytes replyOf(const wire::Operation& operation);

} // namespace kelutv::fuzz
