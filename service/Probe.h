#pragma once

#include <sys/types.h>

#include <string>

namespace kelutv::service {

/**
 * A child of this process that, when asked to, calls a service as any client would.
 *
 * It is to be made before this process has threads or uses the binder runtime, and ends with it at the latest.
 */
class Probe {
public:
    /** @throws std::system_error when there can be no child */
    explicit Probe(const std::string& service);
    ~Probe();
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    /** Whether the service answers a call within ten seconds. To be asked once. */
    bool isAnswered() const;

private:
    pid_t mChild = -1;
    int mSocket = -1;
};

} // namespace kelutv::service
