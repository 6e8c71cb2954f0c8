#include "simulator/television/EepStore.h"

#include <stdexcept>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kMemorySize = EepStore::kSize;
constexpr std::size_t kFileSize = 2 * kMemorySize;

std::size_t startOf(Memory memory) { return memory == Memory::Eep ? 0 : kMemorySize; }

/** The whole content of the file. */
std::string readWhole(const File& file) {
    if (!file.isRegular() || file.size() != kFileSize) {
        throw std::runtime_error(file.path() + " is not an EEP file: it must be a regular file of " +
                                 std::to_string(kFileSize) + " bytes");
    }
    return file.read(kFileSize);
}

} // namespace

EepStore::EepStore() : mContent(kFileSize, '\0'), mCommitted(mContent) {}

EepStore::EepStore(const std::string& path) : EepStore() {
    mFile.emplace(path);
    if (mFile->file() != nullptr) {
        mContent = mCommitted = readWhole(*mFile->file());
    } else {
        save(mCommitted);
    }
}

bool EepStore::covers(std::int32_t address, std::int64_t length) {
    return address >= 0 && address < kSize && length <= kSize - address;
}

std::string EepStore::read(Memory memory, std::int32_t address, std::size_t length) const {
    return mContent.substr(startOf(memory) + static_cast<std::size_t>(address), length);
}

void EepStore::write(Memory memory, std::int32_t address, const std::string& bytes) {
    mContent.replace(startOf(memory) + static_cast<std::size_t>(address), bytes.size(), bytes);
}

void EepStore::commit(Memory memory) {
    std::string next = mCommitted;
    next.replace(startOf(memory), kMemorySize, mContent, startOf(memory), kMemorySize);
    if (next != mCommitted) {
        save(next);
        mCommitted = std::move(next);
    }
}

void EepStore::revert(Memory memory) {
    mContent.replace(startOf(memory), kMemorySize, mCommitted, startOf(memory), kMemorySize);
}

void EepStore::save(const std::string& content) {
    if (mFile) {
        mFile->replace(content, Outlives::Machine);
    }
}

} // namespace kelutv::simulator
