#pragma once

#include "recording/Line.h"
#include "wire/events/EventTable.h"

#include <string>

namespace kelutv::tool {

/** The events of the simulated television or those that KELUTV_EVENTS names; read once.
 * @throws UsageError when that file cannot be read or is wrong */
const wire::EventTable& recordedEvents();

/** What a recording says of the bytes: `{"request": ..., "reply": ...}`, the reply null when there was none. */
std::string decodedForm(const recording::Transaction& transaction);

/** `{"name": ..., "module": ..., "fields": [...]}` by the `recordedEvents`; `words` instead of fields for one that
 * is not known. */
std::string decodedForm(const recording::Event& event);

} // namespace kelutv::tool
