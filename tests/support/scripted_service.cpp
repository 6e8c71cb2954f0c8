#include "support/ScriptedBinder.h"
#include "support/ScriptedProtocol.h"

#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <sys/prctl.h>

#include <csignal>
#include <cstdio>

int main() {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    android::ProcessState::self()->startThreadPool();
    const android::sp<android::IBinder> service = new kelutv::test::ScriptedBinder;
    const android::status_t status =
        android::defaultServiceManager()->addService(android::String16(kelutv::test::scripted::kServiceName), service);
    if (status != android::NO_ERROR) {
        std::fprintf(stderr, "kelutv-scripted-service: cannot register: status %d\n", status);
        return 1;
    }
    std::fputs(kelutv::test::scripted::kReadyLine, stdout);
    std::fflush(stdout);
    android::IPCThreadState::self()->joinThreadPool();
    return 0;
}
