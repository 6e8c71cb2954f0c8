#pragma once

#include <sys/types.h>

#include <string>

namespace kelutv::test {

/**
 * A fresh private directory for the sockets of the test's processes, removed with the object.
 *
 * Sets `KQDROID_RUNTIME_DIR` to it and `KQDROID_SERVICE_WAIT_MS` to 0 for this process and the children it starts,
 * so it must be made before anything of the runtime is used.
 */
class RuntimeDir {
public:
    RuntimeDir();
    ~RuntimeDir();
    RuntimeDir(const RuntimeDir&) = delete;
    RuntimeDir& operator=(const RuntimeDir&) = delete;

    const std::string& path() const { return mPath; }

private:
    std::string mPath;
    pid_t mOwner;
};

} // namespace kelutv::test
