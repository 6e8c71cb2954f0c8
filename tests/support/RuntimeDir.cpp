#include "support/RuntimeDir.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <system_error>

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

RuntimeDir::RuntimeDir() : mPath("/tmp/kelutv-test-XXXXXX"), mOwner(::getpid()) {
    if (::mkdtemp(mPath.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "cannot make " + mPath);
    }
    ::setenv("KQDROID_RUNTIME_DIR", mPath.c_str(), 1);
    ::setenv("KQDROID_SERVICE_WAIT_MS", "0", 1);
    if (throughKernel()) {
        mServiceManager = startServiceManager();
    } else {
        // A driver of the machine's own has no service manager for the tests.
        ::setenv("KQDROID_TRANSPORT", "sockets", 1);
    }
}

RuntimeDir::~RuntimeDir() {
    if (::getpid() == mOwner) {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }
}

} // namespace kelutv::test
