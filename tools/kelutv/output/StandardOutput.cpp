#include "tools/kelutv/output/StandardOutput.h"

#include "tools/kelutv/output/Errors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace kelutv::tool {

void writeData(const std::string& text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0) {
        if (errno == EPIPE) {
            throw ToolError(Exit::Failure, ""); // The reader has seen enough.
        }
        throw ToolError(Exit::Failure, std::string("cannot write to standard output: ") + std::strerror(errno));
    }
}

} // namespace kelutv::tool
