#pragma once

#include "simulator/files/OwnFile.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace kelutv::simulator {

/** The two memories of the television, each with addresses from 0 to `EepStore::kSize` - 1. */
enum class Memory { Eep, FlashEep };

/**
 * The bytes of the EEP and of the flash EEP, which outlive the process when they have a file.
 *
 * The file holds the EEP, then the flash EEP, byte by byte. It is replaced as a whole: whenever the process is killed,
 * the file has the content before or after a commit. Not synchronised.
 */
class EepStore {
public:
    static constexpr std::int32_t kSize = 0x10000;

    /** Without a file: zeros, lost at exit. */
    EepStore();

    /**
     * Reads the file; creates it, full of zeros, if missing.
     * @throws std::runtime_error when the file cannot be read or created, is not such a file or belongs to another
     * process; it is left as it is
     */
    explicit EepStore(const std::string& path);

    /** Whether all these addresses exist; a negative length stands for none. */
    static bool covers(std::int32_t address, std::int64_t length);

    /** The bytes that were written last; the addresses must exist. */
    std::string read(Memory memory, std::int32_t address, std::size_t length) const;

    /** The bytes are there for `read` from now on and in the file after the next commit. */
    void write(Memory memory, std::int32_t address, const std::string& bytes);

    /**
     * Puts what was written to the memory into the file.
     * @throws std::runtime_error when that fails; the file keeps its content
     */
    void commit(Memory memory);

    /** Takes back what was written to the memory since its last commit. */
    void revert(Memory memory);

private:
    void save(const std::string& content);

    std::optional<OwnFile> mFile;
    std::string mContent;
    std::string mCommitted;
};

} // namespace kelutv::simulator
