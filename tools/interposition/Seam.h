#pragma once

#include <string>
#include <vector>

namespace kelutv::interposition {

/** A name that the client library takes from elsewhere. */
struct SeamSymbol {
    /** As the linker has it. */
    std::string name;
    /** The file of the library that has it; empty when none has. */
    std::string library;
};

/** What the client library of this process needs of other libraries; nothing when it is part of the program. */
std::vector<SeamSymbol> seamOfClientLibrary();

/** As it is written in C++; the same for what is no C++. */
std::string readableName(const std::string& symbol);

} // namespace kelutv::interposition
