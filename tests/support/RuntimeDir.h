#pragma once

#include "support/ChildProcess.h"
#include "support/TestFolder.h"

#include <memory>
#include <string>

namespace kelutv::test {

/** True when KQDROID_TRANSPORT says that this test's processes meet in the kernel's binder driver, not over sockets. */
bool throughKernel();

/**
 * A fresh private directory for the sockets of the test's processes, removed with the object.
 *
 * Sets `KQDROID_RUNTIME_DIR` to it and `KQDROID_SERVICE_WAIT_MS` to 0 for this process and the children it starts,
 * so it must be made before anything of the runtime is used. Where the processes meet in the kernel's binder driver, a
 * service manager of its own runs as long.
 */
class RuntimeDir {
public:
    RuntimeDir();

    const std::string& path() const { return mFolder.path(); }

private:
    TestFolder mFolder;
    std::unique_ptr<ChildProcess> mServiceManager;
};

} // namespace kelutv::test
