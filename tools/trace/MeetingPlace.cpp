#include "tools/trace/MeetingPlace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace kelutv::trace {

std::string temporaryFolder() {
    const char* const named = std::getenv("TMPDIR");
    const std::string folder = named != nullptr && *named != '\0' ? named : "/tmp";
    std::error_code error;
    const std::string absolute = std::filesystem::absolute(folder, error).string();
    return error ? folder : absolute;
}

std::string meetingPlaceOf(const struct stat& file) {
    char name[96];
    std::snprintf(name, sizeof(name), "/kelutv-record-%u-%llx-%llx", ::geteuid(),
                  static_cast<unsigned long long>(file.st_dev), static_cast<unsigned long long>(file.st_ino));
    return temporaryFolder() + name;
}

bool isOwnFolder(const std::string& path) {
    struct stat folder {};
    return ::lstat(path.c_str(), &folder) == 0 && S_ISDIR(folder.st_mode) && folder.st_uid == ::geteuid() &&
           (folder.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

std::string pipeIn(const std::string& folder) { return folder + "/pipe"; }

bool isServed(const std::string& pipe) {
    const int fd = ::open(pipe.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        return false;
    }
    ::close(fd);
    return true;
}

} // namespace kelutv::trace
