#include "support/TestFolder.h"

#include "support/Deadline.h"

#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace kelutv::test {

TestFolder::TestFolder() : mPath(std::filesystem::temp_directory_path() / "test-XXXXXX"), mOwner(::getpid()) {
    if (::mkdtemp(mPath.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), "cannot make " + mPath);
    }
}

TestFolder::~TestFolder() {
    if (::getpid() != mOwner) {
        return;
    }
    // Threads of the runtime that are told of a death may still write to the folder.
    eventually([this] {
        std::error_code error;
        std::filesystem::remove_all(mPath, error);
        return !error;
    });
}

} // namespace kelutv::test
