#include "torture/starvation/PageFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <new>
#include <system_error>

namespace kelutv::test {

namespace {

void* mapNewFile(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0 || ::ftruncate(file, sizeof(starvation::Page)) != 0) {
        throw std::system_error(errno, std::generic_category(), path);
    }
    void* const place = ::mmap(nullptr, sizeof(starvation::Page), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    ::close(file);
    if (place == MAP_FAILED) {
        throw std::system_error(errno, std::generic_category(), path);
    }
    return place;
}

} // namespace

PageFile::PageFile(const std::string& path) : mPage(new (mapNewFile(path)) starvation::Page) {}

PageFile::~PageFile() { ::munmap(mPage, sizeof(starvation::Page)); }

} // namespace kelutv::test
