#include "Service.h"

#include "Failure.h"

#include <binder/IServiceManager.h>

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

namespace kelutv::bench {

namespace {

/** A program that writes its standard output to a descriptor. */
Child started(const char* program, int output) {
    return Child([program, output] {
        ::dup2(output, STDOUT_FILENO);
        ::execl(program, program, nullptr);
        fail(program);
    });
}

/** The service manager, once it has said that it is ready. */
Child startedManager() {
    int ends[2];
    require(::pipe2(ends, O_CLOEXEC) == 0, "pipe");
    Child manager = started(KELUTV_SERVICE_MANAGER, ends[1]);
    ::close(ends[1]);
    char letter = 0;
    if (::read(ends[0], &letter, sizeof(letter)) != sizeof(letter)) {
        giveUp("the service manager did not start");
    }
    ::close(ends[0]);
    return manager;
}

void waitForService() {
    const android::String16 name("TVBaseService");
    if (android::defaultServiceManager()->getService(name) == nullptr) {
        giveUp("the service did not start");
    }
}

} // namespace

bool throughKernel() {
    const char* const transport = std::getenv("KQDROID_TRANSPORT");
    return transport != nullptr && std::strcmp(transport, "kernel") == 0;
}

Service::Service() {
    if (throughKernel()) {
        mManager.emplace(startedManager());
    }
    mService.emplace(started(KELUTV_QUICK_SERVICE, STDERR_FILENO));
    runApart(waitForService);
}

} // namespace kelutv::bench
