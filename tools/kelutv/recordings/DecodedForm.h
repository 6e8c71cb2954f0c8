#pragma once

#include "recording/Line.h"

#include <string>

namespace kelutv::tool {

/** What a recording says of the bytes: `{"request": ..., "reply": ...}`, the reply null when there was none. */
std::string decodedForm(const recording::Transaction& transaction);

/** `{"name": ..., "module": ..., "fields": [...]}` by the events of the simulated television or those that
 * KELUTV_EVENTS names; `words` instead of fields for one that is not known. */
std::string decodedForm(const recording::Event& event);

} // namespace kelutv::tool
