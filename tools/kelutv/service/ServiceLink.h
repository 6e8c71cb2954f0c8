#pragma once

#include "tools/interposition/Tap.h"

#include <binder/IBinder.h>

#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * The service's object, connected on the first use. What the platform's log warns of meanwhile is complained of.
 *
 * @throws LinkError when there is none, with what the log says
 */
android::sp<android::IBinder> requireService();

/** Connects to the service if there is one. @return whether it is connected */
bool isServiceThere();

/**
 * Ends a command whose call failed: with a LinkError when one of the requests did not get through, since the service is
 * gone, else with a ServiceError.
 */
[[noreturn]] void failCall(const std::string& what, const std::vector<interposition::Transaction>& transactions);

} // namespace kelutv::tool
