#pragma once

#include "simulator/replay/Progress.h"

#include <sys/types.h>

#include <string>
#include <vector>

namespace kelutv::simulator {

/** What requests are counted under: the name of their item or command, or their number. */
std::string commandNameOf(const wire::Request& request);

/** That a request came before one that the recording has in front of it. */
std::string earlyText(const ReplayScript& script, pid_t caller, std::size_t call, std::size_t before);

/** That a request was not recorded, with the nearest that was, and what of it is another. */
std::string unrecordedText(const ReplayScript& script, const Progress& progress, pid_t caller,
                           const wire::Request& request);

/** The events that have not been published. */
std::vector<const Happening*> unpublishedOf(const ReplayScript& script, const Progress& progress);

/** What has come of a replay: a line on the whole, one for each command, and those for requests that were not asked for
 * and events that were not published. */
std::vector<std::string> reportOn(const ReplayScript& script, const Progress& progress);

} // namespace kelutv::simulator
