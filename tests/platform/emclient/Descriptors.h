#pragma once

#include <sys/resource.h>

#include <cstddef>
#include <filesystem>
#include <stdexcept>

namespace kelutv::test {

/** How many entries a directory has: "/proc/self/fd" has one for each open descriptor, and one for the look. */
inline std::size_t countIn(const char* directory) {
    const std::filesystem::directory_iterator entries(directory);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

/** For as long as the object lives this process gets no further descriptor; those it has work as before. */
class DescriptorShortage {
public:
    DescriptorShortage() {
        rlimit limit{};
        if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) {
            throw std::runtime_error("the limit on descriptors cannot be read");
        }
        mBefore = limit.rlim_cur;
        setLimit(3); // the standard descriptors are taken
    }
    ~DescriptorShortage() { setLimit(mBefore); }
    DescriptorShortage(const DescriptorShortage&) = delete;
    DescriptorShortage& operator=(const DescriptorShortage&) = delete;

private:
    static void setLimit(rlim_t value) {
        rlimit limit{};
        ::getrlimit(RLIMIT_NOFILE, &limit);
        limit.rlim_cur = value;
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }

    rlim_t mBefore = 0;
};

} // namespace kelutv::test
