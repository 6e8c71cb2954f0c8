#pragma once

#include "client/wire/WireTable.h"
#include "support/ScriptedService.h"
#include "support/Wire.h"

namespace kelutv::test {

/** The bytes that the operation must send. */
Bytes requestBytes(const WireOperation& operation);

/** Fails the test unless the service has been asked once since the last look, with these bytes. */
void expectOneRequest(ScriptedService& service, const WireOperation& operation);

} // namespace kelutv::test
