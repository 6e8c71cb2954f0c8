#pragma once

#include <string>
#include <vector>

namespace kelutv::test {

/** exit-in-calls NAME: returns from main while threads call the service without end through a static proxy. */
int exitInCalls(const std::vector<std::string>& arguments);

} // namespace kelutv::test
