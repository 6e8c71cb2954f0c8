#pragma once

#include <string>

namespace kelutv::tool {

/** @name The texts of the files that a new project has, with `{{NAME}}` for what differs. @{ */
extern const char* const kBuildTemplate;
extern const char* const kMainTemplate;
extern const char* const kHandlersTemplate;
extern const char* const kModuleTemplate;
extern const char* const kReadmeTemplate;
extern const char* const kUnitTemplate;
/** @} */

/** The text with the value in each place of this name. */
std::string filled(std::string text, const std::string& name, const std::string& value);

} // namespace kelutv::tool
