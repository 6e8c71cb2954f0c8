#include "ServiceProcess.h"

#include <binder/IServiceManager.h>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace kelutv::bench {

namespace {

class ServiceProcess {
public:
    ServiceProcess() {
        char name[] = "/tmp/kelutv-bench-XXXXXX";
        mDirectory = ::mkdtemp(name);
        ::setenv("KQDROID_RUNTIME_DIR", mDirectory.c_str(), 1);
        ::setenv("KQDROID_SERVICE_WAIT_MS", "5000", 1);
        mProcess = ::fork();
        if (mProcess == 0) {
            ::execl(KELUTV_QUICK_SERVICE, KELUTV_QUICK_SERVICE, nullptr);
            ::_exit(127);
        }
        if (android::defaultServiceManager()->getService(android::String16("TVBaseService")) == nullptr) {
            std::fprintf(stderr, "kelutv-bench: %s did not start\n", KELUTV_QUICK_SERVICE);
            std::exit(1);
        }
    }
    ~ServiceProcess() {
        ::kill(mProcess, SIGKILL);
        ::waitpid(mProcess, nullptr, 0);
        std::filesystem::remove_all(mDirectory);
    }
    ServiceProcess(const ServiceProcess&) = delete;
    ServiceProcess& operator=(const ServiceProcess&) = delete;

    pid_t process() const { return mProcess; }

private:
    std::string mDirectory;
    pid_t mProcess = -1;
};

} // namespace

pid_t serviceProcess() {
    static const ServiceProcess service;
    return service.process();
}

} // namespace kelutv::bench
