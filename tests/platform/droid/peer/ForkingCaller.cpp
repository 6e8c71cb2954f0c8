#include "ForkingCaller.h"

#include "PeerProtocol.h"
#include "platform/droid/Calls.h"
#include "support/Deadline.h"

#include <binder/Binder.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <thread>

namespace kelutv::test {

using android::IBinder;
using android::sp;

namespace {

class Witness : public IBinder::DeathRecipient {
public:
    void binderDied(const android::wp<IBinder>&) override {}
};

/** The number of the first thing that is not as it must be in the child; 0 for none. */
int childCheck(const sp<IBinder>& binder, const sp<Witness>& linked, const std::string& name) {
    const sp<Witness> witness = new Witness;
    if (call(binder, kEcho).status != android::DEAD_OBJECT || binder->pingBinder() != android::DEAD_OBJECT) {
        return 11;
    }
    if (binder->linkToDeath(witness) != android::DEAD_OBJECT || binder->unlinkToDeath(linked) != android::DEAD_OBJECT) {
        return 12;
    }
    const sp<android::IServiceManager> manager = android::defaultServiceManager();
    if (manager->getService(android::String16(name.c_str())) != nullptr || manager->listServices().size() != 0) {
        return 13;
    }
    if (manager->addService(android::String16("of.child"), new android::BBinder) != android::INVALID_OPERATION) {
        return 14;
    }
    android::ProcessState::self()->startThreadPool();
    return 0;
}

int exitCodeOf(pid_t child) {
    int status = 0;
    if (!eventually([&] { return ::waitpid(child, &status, WNOHANG) == child; })) {
        ::kill(child, SIGKILL);
        ::waitpid(child, &status, 0);
        return 1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 2;
}

} // namespace

int forkAndCall(const std::vector<std::string>& arguments) {
    const std::string& name = arguments.at(0);
    const sp<IBinder> binder = service(name);
    const sp<Witness> witness = new Witness;
    binder->linkToDeath(witness);
    std::thread inCall([binder] { call(binder, kHold); });
    if (!waitUntilHeld(binder, 1)) {
        std::_Exit(3);
    }
    const pid_t child = ::fork();
    if (child == 0) {
        std::exit(childCheck(binder, witness, name));
    }
    const int childsCode = exitCodeOf(child);
    const bool goesOn = call(binder, kRelease).status == android::NO_ERROR && service(name) != nullptr &&
                        binder->unlinkToDeath(witness) == android::NO_ERROR;
    inCall.join();
    return goesOn ? childsCode : 4;
}

} // namespace kelutv::test
