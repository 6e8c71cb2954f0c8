#include "simulator/output/StandardDescriptors.h"

#include <fcntl.h>
#include <unistd.h>

namespace kelutv::simulator {

void openStandardDescriptors() {
    int descriptor = STDIN_FILENO;
    while (descriptor >= 0 && descriptor <= STDERR_FILENO) {
        descriptor = ::open("/dev/null", O_RDWR); // NOLINT(android-cloexec-open): as standard descriptors are
    }
    if (descriptor > STDERR_FILENO) {
        ::close(descriptor);
    }
}

} // namespace kelutv::simulator
