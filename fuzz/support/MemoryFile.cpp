#include "fuzz/support/MemoryFile.h"

#include "fuzz/support/Target.h"

#include <sys/mman.h>
#include <unistd.h>

namespace kelutv::fuzz {

MemoryFile::MemoryFile(const std::uint8_t* data, std::size_t size) : mFile(::memfd_create("input", MFD_CLOEXEC)) {
    const bool isWritten = mFile && (size == 0 || ::write(mFile.get(), data, size) == static_cast<ssize_t>(size));
    require(isWritten, "there is memory for the input's file");
}

} // namespace kelutv::fuzz
