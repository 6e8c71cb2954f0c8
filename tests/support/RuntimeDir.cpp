#include "support/RuntimeDir.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace kelutv::test {

RuntimeDir::RuntimeDir() : mPath("/tmp/kelutv-test-XXXXXX"), mOwner(::getpid()) {
    if (::mkdtemp(mPath.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "cannot make " + mPath);
    }
    ::setenv("KQDROID_RUNTIME_DIR", mPath.c_str(), 1);
    ::setenv("KQDROID_SERVICE_WAIT_MS", "0", 1);
}

RuntimeDir::~RuntimeDir() {
    if (::getpid() == mOwner) {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }
}

} // namespace kelutv::test
