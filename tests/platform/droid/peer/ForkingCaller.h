#pragma once

#include <string>
#include <vector>

namespace kelutv::test {

/**
 * fork NAME: forks while another thread is inside a call, and checks that the child can do nothing with the service and
 * ends by itself, and that the parent goes on. The exit code is the number of the check that failed.
 */
int forkAndCall(const std::vector<std::string>& arguments);

/**
 * fork-and-stay NAME: calls the service and links to its death, forks a child that stays, prints the child's pid and
 * stays itself.
 */
int forkAndStay(const std::vector<std::string>& arguments);

/**
 * fork-in-notice NAME: forks a child in the notice of the service's death, from which both return. 0 once the child has
 * ended by itself, with 0.
 */
int forkInNotice(const std::vector<std::string>& arguments);

} // namespace kelutv::test
