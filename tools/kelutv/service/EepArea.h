#pragma once

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/Hex.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** A memory of the television, or a guarded area of one, with the operations of the library on it. */
struct EepArea {
    const char* name;
    const char* meaning;
    int first;
    int last;
    int (*readBlock)(int address, int length, int* buffer);
    int (*writeBlock)(int address, int length, int* bytes);
    /** Null where writes need no commitment. */
    int (*commit)();

    int size() const { return last - first + 1; }

    /** @throws UsageError when the block is not wholly inside */
    void requireBlock(int address, int length) const;

    /** @throws LinkError or ServiceError, as do those below */
    Bytes read(int address, int length) const;
    void write(int address, const Bytes& bytes) const;
    void flush() const;
};

const std::vector<EepArea>& eepAreas();

/** The area of this name, whatever its case. @throws UsageError when there is none */
const EepArea& eepAreaNamed(const std::string& name);

/** `0x8A00`. */
std::string addressText(int address);

/** `1 byte`, `2 bytes`. */
std::string bytesText(std::size_t count);

} // namespace kelutv::tool
