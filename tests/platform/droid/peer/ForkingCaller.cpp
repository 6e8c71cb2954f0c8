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
#include <cstdio>
#include <cstdlib>
#include <future>
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

int forkAndStay(const std::vector<std::string>& arguments) {
    const sp<IBinder> binder = service(arguments.at(0));
    const sp<Witness> witness = new Witness;
    if (binder->linkToDeath(witness) != android::NO_ERROR || call(binder, kEcho).status != android::NO_ERROR) {
        return 1;
    }
    const pid_t child = ::fork();
    if (child != 0) {
        std::printf("%d\n", static_cast<int>(child));
        std::fflush(stdout);
    }
    ::alarm(60);
    ::pause();
    return 0;
}

int forkInNotice(const std::vector<std::string>& arguments) {
    class Forker : public IBinder::DeathRecipient {
    public:
        void binderDied(const android::wp<IBinder>&) override {
            const pid_t child = ::fork();
            // In the child nobody reads it.
            mCode.set_value(child == 0 ? 0 : exitCodeOf(child));
        }
        std::future<int> code() { return mCode.get_future(); }

    private:
        std::promise<int> mCode;
    };
    const sp<IBinder> binder = service(arguments.at(0));
    const sp<Forker> forker = new Forker;
    std::future<int> code = forker->code();
    if (binder->linkToDeath(forker) != android::NO_ERROR) {
        return 3;
    }
    std::fputs(kPeerReady, stdout);
    std::fflush(stdout);
    return code.wait_for(2 * kPatience) == std::future_status::ready ? code.get() : 4;
}

} // namespace kelutv::test
