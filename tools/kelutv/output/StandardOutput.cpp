#include "tools/kelutv/output/StandardOutput.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Streams.h"

#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace kelutv::tool {

namespace {

std::atomic<bool> readerGone{false};

/** Not by the stream, which would keep what nobody takes and write it elsewhere when its descriptor changes. */
bool writeAll(std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(::fileno(ownOutput()), text.data(), text.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        text.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    return true;
}

} // namespace

void writeData(const std::string& text) {
    if (readerGone) {
        return;
    }
    std::fflush(ownOutput()); // What the printing callbacks have left there comes first.
    if (writeAll(text)) {
        return;
    }
    if (errno != EPIPE) {
        throw ToolError(Exit::Failure, std::string("cannot write to standard output: ") + std::strerror(errno));
    }
    readerGone = true;
}

bool isReaderGone() { return readerGone; }

} // namespace kelutv::tool
