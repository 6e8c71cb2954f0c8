#pragma once

namespace kelutv::tool {

/**
 * Connects the client library to the television's service, once and without the library's words about it.
 *
 * @throws LinkError when there is no service
 */
void connectToService();

/**
 * While this lives, requests go nowhere: each is answered with zeros inside this process, and nothing is connected to
 * or waited for. One at a time; afterwards calls reach the service as before.
 */
class NoService {
public:
    NoService();
    ~NoService();
    NoService(const NoService&) = delete;
    NoService& operator=(const NoService&) = delete;
};

} // namespace kelutv::tool
