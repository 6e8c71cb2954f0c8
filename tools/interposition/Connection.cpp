#include "tools/interposition/Connection.h"

#include "tools/interposition/StubService.h"
#include "tools/interposition/Tap.h"
#include "tools/process/Redirection.h"

#include <binder/IServiceManager.h>
#include <keluem/emal.h>
#include <kelutv/link/TVBaseClient.h>

#include <dlfcn.h>

#include <utility>
#include <vector>

namespace kelutv::interposition {

namespace {

using Listener = void (*)(unsigned int, void*, unsigned int, void*);

/** How far the library is connected, and what it subscribed to while the service was stubbed. */
struct State {
    bool isStubbed = false;
    bool isClientMade = false;
    bool isConnected = false;
    std::vector<std::pair<unsigned int, Listener>> listeners;
};

State& state() {
    static State state;
    return state;
}

android::TVBaseClient& madeClient() {
    const process::MutedStandardError muted;
    state().isClientMade = true;
    return *android::TVBaseClient::self();
}

/** The client was made while the service was stubbed: gives it what it would have found and subscribed to. */
void attach(android::TVBaseClient& client, const android::sp<android::IBinder>& binder) {
    // The proxy first: the thread that handles the service's death reads it.
    client.getBpTvbaseService() = android::interface_cast<android::ITVBaseService>(binder);
    binder->linkToDeath(client.getDeathRecipient(), nullptr, 0);
    for (const auto& [module, listener] : std::exchange(state().listeners, {})) {
        EMAL_AddListener(module, listener);
    }
}

/** The platform's own function behind one of those below. */
template <typename Function> Function next(const char* symbol) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, symbol));
}

} // namespace

bool connectToService() {
    if (state().isConnected) {
        return true;
    }
    const auto binder = android::defaultServiceManager()->getService(android::String16("TVBaseService"));
    if (binder == nullptr) {
        return false;
    }
    const bool wasMade = state().isClientMade;
    android::TVBaseClient& client = madeClient();
    if (wasMade) {
        attach(client, binder);
    }
    state().isConnected = true;
    return true;
}

StubbedService::StubbedService() {
    state().isStubbed = true;
    madeClient();
    setResponder(answerWithZeros);
}

StubbedService::~StubbedService() {
    setResponder(nullptr);
    state().isStubbed = false;
}

} // namespace kelutv::interposition

namespace android {

/** Goes before the platform's own. */
__attribute__((visibility("default"))) sp<IServiceManager> defaultServiceManager() {
    if (kelutv::interposition::state().isStubbed) {
        return kelutv::interposition::stubServiceManager();
    }
    using Function = sp<IServiceManager> (*)();
    static const auto platform = kelutv::interposition::next<Function>("_ZN7android21defaultServiceManagerEv");
    return platform();
}

} // namespace android

/** Goes before the platform's own: a stubbed service sends no events, and nothing is touched to await them. */
extern "C" __attribute__((visibility("default"))) int
EMAL_AddListener(unsigned int module, void (*listener)(unsigned int, void*, unsigned int, void*)) {
    if (kelutv::interposition::state().isStubbed) {
        kelutv::interposition::state().listeners.emplace_back(module, listener);
        return 0;
    }
    using Function = int (*)(unsigned int, kelutv::interposition::Listener);
    static const auto platform = kelutv::interposition::next<Function>("EMAL_AddListener");
    return platform(module, listener);
}
