// A process on the other side of the tests: peer ROLE ARGUMENT...

#include "ClosedStreams.h"
#include "ExitingCaller.h"
#include "ForkingCaller.h"
#include "HoldingCaller.h"
#include "LateNotice.h"
#include "OtherUser.h"
#include "PeerProtocol.h"
#include "PeerService.h"

#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace kelutv::test {
namespace {

using Arguments = std::vector<std::string>;

/** One object under every name. */
int add(const Arguments& names) {
    const android::sp<android::IBinder> object = new PeerService;
    for (const std::string& name : names) {
        const android::status_t status =
            android::defaultServiceManager()->addService(android::String16(name.c_str(), name.size()), object);
        if (status != android::NO_ERROR) {
            std::fprintf(stderr, "peer: cannot serve %s: status %d\n", name.c_str(), status);
            return 1;
        }
    }
    std::fputs(kPeerReady, stdout);
    std::fflush(stdout);
    return 0;
}

/** serve NAME...: one object under every name. */
int serve(const Arguments& names) {
    android::ProcessState::self()->startThreadPool();
    if (const int failure = add(names); failure != 0) {
        return failure;
    }
    android::IPCThreadState::self()->joinThreadPool();
    return 0;
}

/** add NAME...: as serve, but answers nobody. */
int addOnly(const Arguments& names) {
    if (const int failure = add(names); failure != 0) {
        return failure;
    }
    ::pause();
    return 0;
}

/** serve-as UID NAME...: as that user. */
int serveAs(const Arguments& arguments) {
    return become(arguments.at(0)) ? serve(Arguments(arguments.begin() + 1, arguments.end())) : 1;
}

/** descriptors: prints what this process was given beyond the standard three, sockets and the kernel's objects. */
int printDescriptors(const Arguments&) {
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code ignored;
        const std::string target = std::filesystem::read_symlink(entry.path(), ignored).string();
        const bool standard = std::stoi(entry.path().filename().string()) <= STDERR_FILENO;
        if (!standard &&
            (target.rfind("socket:", 0) == 0 || target.rfind("anon_inode:", 0) == 0 || target == "/dev/binder")) {
            std::printf("%s\n", target.c_str());
        }
    }
    return 0;
}

struct Role {
    const char* name;
    int (*play)(const Arguments& arguments);
};

constexpr Role kRoles[] = {
    {"serve", serve},
    {"serve-as", serveAs},
    {"add", addOnly},
    {"exit-in-calls", exitInCalls},
    {"fork", forkAndCall},
    {"descriptors", printDescriptors},
    {"connect-as", connectAs},
    {"listen-as", listenAs},
    {"fork-and-stay", forkAndStay},
    {"fork-in-notice", forkInNotice},
    {"closed-streams", callWithoutStreams},
    {"exit-in-deliveries", exitInDeliveries},
    {"hold", holdCalls},
    {"late-notice", exitBeforeNotice},
};

int play(int count, char** words) {
    for (const Role& role : kRoles) {
        if (count > 1 && std::strcmp(words[1], role.name) == 0) {
            return role.play(Arguments(words + 2, words + count));
        }
    }
    std::fputs("peer: no such role\n", stderr);
    return 2;
}

} // namespace
} // namespace kelutv::test

int main(int argc, char** argv) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    return kelutv::test::play(argc, argv);
}
