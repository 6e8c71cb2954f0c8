#pragma once

#include <string>
#include <vector>

namespace kelutv::wire {

/**
 * The names a person may have meant, nearest first: those that differ in few letters (two that changed places are one
 * difference) and those that hold what was written. Capital letters do not count. Each name at most once.
 */
std::vector<std::string> nearestNames(const std::string& written, const std::vector<std::string>& names);

/** The end of a message about a name that does not exist: `; nearest: volume, mute`, or nothing when none is near. */
std::string nearestHint(const std::string& written, const std::vector<std::string>& names);

} // namespace kelutv::wire
