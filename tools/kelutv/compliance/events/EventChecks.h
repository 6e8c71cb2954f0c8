#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"

namespace kelutv::tool::compliance {

/** Adds the checks of what is told when something is set: of each state that has an event, under each key. */
void addEventChecks(Checks& checks, const Terms& terms);

/** The check of one change that is told once: of the volume where there is one. */
std::unique_ptr<const Check> checkOfOneEvent(const Terms& terms);

/** Events come to this process from now on. @throws ToolError, LinkError when they cannot */
void listenToEvents();

/** Whether a process that listens is told of the end of the service within this time. */
bool hearsOfTheEnd(std::chrono::seconds time);

} // namespace kelutv::tool::compliance
