#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"

namespace kelutv::tool::compliance {

/** Adds the checks of what is told when something is set: of each state that has an event, under each key. */
void addEventChecks(Checks& checks, const Terms& terms);

/** The check of one change that is told once: of the volume where there is one; null where no change is told. */
std::unique_ptr<const Check> checkOfOneEvent(const Terms& terms);

/** Why nothing that waits for such a check is made; empty when there is one. */
std::string whyNoEvent(const Terms& terms);

/** Events come to this process from now on. @throws ToolError, LinkError when they cannot */
void listenToEvents();

/**
 * Whether, since this process listens, an event of this name has come whose payload begins with these words. Waits half
 * a second for it.
 */
bool hasHeard(const std::string& event, const std::vector<std::int32_t>& words);

/** The payloads of so many events of this name, as far as each comes within the time. */
std::vector<Bytes> payloadsHeard(const std::string& event, std::size_t count, std::chrono::milliseconds time);

/** Whether a process that listens is told of the end of the service within this time. */
bool hearsOfTheEnd(std::chrono::seconds time);

} // namespace kelutv::tool::compliance
