#pragma once

#include <string>
#include <vector>

namespace kelutv::test {

/** Makes this process another user's; false, with the reason on standard error, when it cannot. */
bool become(const std::string& user);

/** connect-as UID PATH: as that user, connects to the socket and prints what comes of it. */
int connectAs(const std::vector<std::string>& arguments);

/** listen-as UID PATH: as that user, listens at the path until it is killed. */
int listenAs(const std::vector<std::string>& arguments);

} // namespace kelutv::test
