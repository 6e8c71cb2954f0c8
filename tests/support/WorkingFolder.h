#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

namespace kelutv::test {

/** The folder in which this process works, and starts programs, as long as the object is there. */
class WorkingFolder {
public:
    explicit WorkingFolder(const std::string& path) : mBefore(::open(".", O_PATH | O_DIRECTORY | O_CLOEXEC)) {
        if (mBefore < 0 || ::chdir(path.c_str()) != 0) {
            throw std::system_error(errno, std::generic_category(), "cannot work in " + path);
        }
    }
    ~WorkingFolder() {
        [[maybe_unused]] const int ignored = ::fchdir(mBefore);
        ::close(mBefore);
    }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    int mBefore;
};

} // namespace kelutv::test
