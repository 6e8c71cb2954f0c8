#pragma once

#include <string>
#include <vector>

namespace kelutv::test {

/** hold PATH COUNT: has so many calls under way at the socket of a service, says that it is ready, and stays. */
int holdCalls(const std::vector<std::string>& arguments);

} // namespace kelutv::test
