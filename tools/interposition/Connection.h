#pragma once

#include <string>
#include <vector>

namespace kelutv::interposition {

/** What came of connecting. */
struct Connection {
    bool isThere;
    /** What the platform's log warned of meanwhile, such as where it looked in vain; one message each. */
    std::vector<std::string> warnings;
};

/**
 * Connects the client library to the television's service, once. Once there is a connection, it gives that without
 * warnings.
 */
Connection connectToService();

/**
 * Looks for the service again after a request that did not get through, for as long as a look-up waits when it is gone,
 * and for up to a second while there is one, which may be about to end.
 *
 * @return what the platform's log says of why there is none, one message each; nothing when there is one again
 */
std::vector<std::string> reasonsOfLoss();

/**
 * While this lives, every request is answered with zeros in this process; nothing is connected to or waited for. One at
 * a time; afterwards calls reach the service as before.
 */
class StubbedService {
public:
    StubbedService();
    ~StubbedService();
    StubbedService(const StubbedService&) = delete;
    StubbedService& operator=(const StubbedService&) = delete;
};

} // namespace kelutv::interposition
