#include "Peer.h"

#include "PeerProtocol.h"
#include "platform/droid/Calls.h"

#include "support/Deadline.h"
#include "support/RuntimeDir.h"

#include <algorithm>
#include <csignal>
#include <stdexcept>

namespace kelutv::test {

namespace {

std::vector<std::string> serving(const std::vector<std::string>& names) {
    std::vector<std::string> command{kPeerProgram, "serve"};
    command.insert(command.end(), names.begin(), names.end());
    return command;
}

bool noneServed(const std::vector<std::string>& names) {
    return std::all_of(names.begin(), names.end(), [](const std::string& name) { return service(name) == nullptr; });
}

ChildProcess::Options capturing() {
    ChildProcess::Options options;
    options.captureOutput = true;
    return options;
}

} // namespace

const char* const kPeerProgram = KELUTV_TEST_PEER;

Peer::Peer(const std::vector<std::string>& names) : mNames(names), mProcess(serving(names), capturing()) {
    if (!mProcess.output().waitFor(kPeerReady)) {
        throw std::runtime_error("the peer did not come up");
    }
}

android::sp<android::IBinder> Peer::binder(const std::string& name) const {
    android::sp<android::IBinder> binder = service(name);
    if (binder == nullptr) {
        throw std::runtime_error("the peer does not serve " + name);
    }
    return binder;
}

void Peer::kill() {
    mProcess.kill(SIGKILL);
    if (!waitUntilGone()) {
        throw std::runtime_error("the peer is still there after SIGKILL");
    }
    // The kernel's driver lets a process go a little after its end, and only then tells the service manager.
    if (throughKernel() && !eventually([this] { return noneServed(mNames); })) {
        throw std::runtime_error("the peer's names are still there after SIGKILL");
    }
}

} // namespace kelutv::test
