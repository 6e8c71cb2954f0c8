#include "tools/kelutv/output/Streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>

#include <cstdint>
#endif

namespace kelutv::tool {

namespace {

struct Streams {
    std::FILE* output = stdout;
    std::FILE* error = stderr;
};

Streams& streams() {
    static Streams streams;
    return streams;
}

/** The stream again, on a descriptor above the standard ones; the same one where there is none to be had. */
std::FILE* copyOf(std::FILE* stream) {
    const int fd = ::fcntl(::fileno(stream), F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    std::FILE* const copy = fd < 0 ? nullptr : ::fdopen(fd, "w");
    return copy != nullptr ? copy : stream;
}

/** Lets what others print to a stream go elsewhere, unless the tool has to print there itself. */
void lead(std::FILE* stream, const std::FILE* own, int elsewhere) {
    if (stream != own && elsewhere >= 0) {
        ::dup2(elsewhere, ::fileno(stream));
    }
}

/** A sanitizer's reports are the tool's own. */
void reportToOwnError() {
#ifdef __SANITIZE_ADDRESS__
    ::__sanitizer_set_report_fd(reinterpret_cast<void*>(static_cast<std::intptr_t>(::fileno(ownError()))));
#endif
}

} // namespace

void keepStreamsApart() {
    Streams& own = streams();
    own = {copyOf(stdout), copyOf(stderr)};
    ::setvbuf(own.error, nullptr, _IONBF, 0);
    const bool isLogWanted = std::getenv("KQLOG_LEVEL") != nullptr;
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    lead(stdout, own.output, isLogWanted ? ::fileno(own.error) : nowhere);
    lead(stderr, own.error, isLogWanted ? ::fileno(own.error) : nowhere);
    ::close(nowhere);
    reportToOwnError();
}

std::FILE* ownOutput() { return streams().output; }

std::FILE* ownError() { return streams().error; }

std::vector<std::pair<int, int>> ownDescriptors() {
    return {{STDOUT_FILENO, ::fileno(ownOutput())}, {STDERR_FILENO, ::fileno(ownError())}};
}

} // namespace kelutv::tool
