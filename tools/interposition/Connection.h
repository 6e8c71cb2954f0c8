#pragma once

namespace kelutv::interposition {

/**
 * Connects the client library to the television's service, once; standard error is muted while the library connects.
 *
 * @return whether there is a service
 */
bool connectToService();

/**
 * While this lives, a stub in this process answers every request with zeros; nothing is connected to or waited for.
 * One at a time; afterwards calls reach the service as before.
 */
class StubbedService {
public:
    StubbedService();
    ~StubbedService();
    StubbedService(const StubbedService&) = delete;
    StubbedService& operator=(const StubbedService&) = delete;
};

} // namespace kelutv::interposition
