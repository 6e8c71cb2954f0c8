#pragma once

#include <string>

namespace kelutv::tool {

/** Writes data to standard output at once. @throws ToolError when nobody takes it */
void writeData(const std::string& text);

} // namespace kelutv::tool
