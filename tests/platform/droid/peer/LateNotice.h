#pragma once

#include <string>
#include <vector>

namespace kelutv::test {

constexpr char kExiting[] = "exiting\n";
constexpr int kToldAtExit = 3;

/**
 * late-notice NAME WAY: a static object watches the service; the process exits and, when its static objects are
 * destroyed, prints kExiting and ends with 0 unless it is told within a while of the service's death (kToldAtExit).
 * WAY is how it came to the watch:
 * - main: the main thread asked for it and does nothing else
 * - thread: another thread asked for it, and called once, in vain
 */
int exitBeforeNotice(const std::vector<std::string>& arguments);

} // namespace kelutv::test
