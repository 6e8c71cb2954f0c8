#include "ModuleList.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "socket/UniqueFd.h"

namespace keluem {

namespace {

std::string listOf(const std::string& socketPath) { return socketPath + ".modules"; }

int writeWhole(const std::string& path, const void* data, std::size_t size) {
    const kq::UniqueFd file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file) {
        return -errno;
    }
    const ssize_t written = ::write(file.get(), data, size);
    if (written < 0) {
        return -errno;
    }
    return static_cast<std::size_t>(written) == size ? 0 : -ENOSPC;
}

} // namespace

int writeModules(const std::string& socketPath, const std::vector<std::uint32_t>& modules) {
    const std::string list = listOf(socketPath);
    const std::string next = list + ".new";
    int error = writeWhole(next, modules.data(), modules.size() * sizeof(modules[0]));
    if (error == 0 && std::rename(next.c_str(), list.c_str()) != 0) {
        error = -errno;
    }
    if (error != 0) {
        ::unlink(next.c_str());
    }
    return error;
}

std::vector<std::uint32_t> readModules(const std::string& socketPath) {
    std::vector<std::uint32_t> modules;
    const kq::UniqueFd file(::open(listOf(socketPath).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    std::uint32_t words[64];
    ssize_t size = 0;
    while (file && (size = ::read(file.get(), words, sizeof(words))) > 0) {
        modules.insert(modules.end(), words, words + static_cast<std::size_t>(size) / sizeof(words[0]));
    }
    return modules;
}

void removeSubscriber(const std::string& socketPath) {
    ::unlink(socketPath.c_str());
    ::unlink(listOf(socketPath).c_str());
}

} // namespace keluem
