#pragma once

#include <string>
#include <vector>

namespace kelutv::test {

/**
 * fork NAME: forks while another thread is inside a call, and checks that the child can do nothing with the service and
 * ends by itself, and that the parent goes on. The exit code is the number of the check that failed.
 */
int forkAndCall(const std::vector<std::string>& arguments);

} // namespace kelutv::test
