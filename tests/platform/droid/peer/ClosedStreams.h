#pragma once

#include <string>
#include <vector>

namespace kelutv::test {

/** closed-streams NAME: calls the service with its standard descriptors closed, and logs in between. 0 when all went
 * well. */
int callWithoutStreams(const std::vector<std::string>& arguments);

} // namespace kelutv::test
