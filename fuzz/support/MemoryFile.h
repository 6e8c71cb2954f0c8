#pragma once

#include "socket/UniqueFd.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace kelutv::fuzz {

/** A regular file in memory that can be opened by its path while the object lives. */
class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size);

    std::string path() const { return "/proc/self/fd/" + std::to_string(mFile.get()); }

private:
    kq::UniqueFd mFile;
};

} // namespace kelutv::fuzz
