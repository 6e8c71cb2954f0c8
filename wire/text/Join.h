#pragma once

#include <string>
#include <vector>

namespace kelutv::wire {

/** The parts with the separator between them. */
std::string joined(const std::vector<std::string>& parts, const std::string& separator = ", ");

} // namespace kelutv::wire
