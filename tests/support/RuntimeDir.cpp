#include "support/RuntimeDir.h"

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace kelutv::test {

namespace {

std::unique_ptr<ChildProcess> startServiceManager() {
    ChildProcess::Options options;
    options.captureOutput = true;
    auto manager = std::make_unique<ChildProcess>(std::vector<std::string>{KELUTV_SERVICE_MANAGER}, options);
    if (!manager->output().waitFor("kqservicemanager: ready")) {
        throw std::runtime_error("the service manager did not come up");
    }
    return manager;
}

} // namespace

bool throughKernel() {
    const char* const transport = std::getenv("KQDROID_TRANSPORT");
    return transport != nullptr && std::strcmp(transport, "kernel") == 0;
}

RuntimeDir::RuntimeDir() {
    ::setenv("KQDROID_RUNTIME_DIR", path().c_str(), 1);
    ::setenv("KQDROID_SERVICE_WAIT_MS", "0", 1);
    if (throughKernel()) {
        mServiceManager = startServiceManager();
    } else {
        // A driver of the machine's own has no service manager for the tests.
        ::setenv("KQDROID_TRANSPORT", "sockets", 1);
    }
}

} // namespace kelutv::test
