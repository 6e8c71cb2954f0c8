#pragma once

#include <string>
#include <vector>

namespace kelutv::tool {

/** The television's events by `eventsOf` this file; none when the file cannot be read or is wrong. */
std::vector<std::string> eventNames(const std::string& eventFile);

/** What `wait` waits for: the service, an event or a setting, and behind `SETTING=` what that can be. */
std::vector<std::string> awaitedNames(const std::string& eventFile, const std::string& begun);

/** `FIELD=` for each field of an event by name or number, and behind that what a field with names can be. */
std::vector<std::string> fieldNames(const std::string& eventFile, const std::string& event, const std::string& begun);

} // namespace kelutv::tool
