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
 * @param what begins the message
 * @throws LostError when one of the requests did not get through
 */
void requireAnswers(const std::string& what, const std::vector<interposition::Transaction>& transactions);

/** The text with what the platform's log says, at another look for the service, of why there is none any more. */
std::string withReasonsOfLoss(const std::string& what);

} // namespace kelutv::tool
