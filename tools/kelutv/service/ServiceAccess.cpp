#include "tools/kelutv/service/ServiceAccess.h"

#include "tools/interposition/Tap.h"
#include "tools/kelutv/output/Errors.h"

#include <binder/IServiceManager.h>
#include <keluem/emal.h>
#include <kelutv/link/TVBaseClient.h>

#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <utility>
#include <vector>

namespace kelutv::tool {

namespace {

using Listener = void (*)(unsigned int, void*, unsigned int, void*);

int answerZeros(const android::Parcel& /*request*/, android::Parcel* reply) {
    static constexpr std::array<std::uint8_t, 4096> kZeros{};
    return reply->setData(kZeros.data(), kZeros.size());
}

/** What the library finds while there is no service; its requests do not come this far. */
class ZeroService : public android::BnInterface<android::ITVBaseService> {
public:
    android::status_t invoke(const android::Parcel& request, android::Parcel* reply) override {
        return answerZeros(request, reply);
    }
};

/** Finds the ZeroService under every name. */
class ZeroServices : public android::IServiceManager {
public:
    android::sp<android::IBinder> getService(const android::String16& /*name*/) const override {
        return android::IInterface::asBinder(android::sp<android::ITVBaseService>(new ZeroService));
    }
    android::sp<android::IBinder> checkService(const android::String16& name) const override {
        return getService(name);
    }
    android::status_t addService(const android::String16& /*name*/, const android::sp<android::IBinder>& /*service*/,
                                 bool /*allowIsolated*/, int /*dumpsysFlags*/) override {
        return android::INVALID_OPERATION;
    }
    android::Vector<android::String16> listServices(int /*dumpsysFlags*/) override { return {}; }
};

/** How far the library is connected, and what it asked for while there was no service. */
struct Access {
    bool withoutService = false;
    bool isClientMade = false;
    bool isConnected = false;
    std::vector<std::pair<unsigned int, Listener>> listeners;
};

Access& access() {
    static Access access;
    return access;
}

/** Sends standard error nowhere while it lives. */
class QuietError {
public:
    QuietError() : mError(::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1)) {
        std::fflush(stderr);
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (mError >= 0 && nowhere >= 0) {
            ::dup2(nowhere, STDERR_FILENO);
        }
        ::close(nowhere);
    }
    ~QuietError() {
        std::fflush(stderr);
        if (mError >= 0) {
            ::dup2(mError, STDERR_FILENO);
            ::close(mError);
        }
    }
    QuietError(const QuietError&) = delete;
    QuietError& operator=(const QuietError&) = delete;

private:
    int mError;
};

android::TVBaseClient& madeClient() {
    const QuietError quiet;
    access().isClientMade = true;
    return *android::TVBaseClient::self();
}

/** The client was made without a service: gives it what it would have found and subscribed to. */
void attach(android::TVBaseClient& client, const android::sp<android::IBinder>& binder) {
    // The proxy first: the thread that tells of the service's death reads it.
    client.getBpTvbaseService() = android::interface_cast<android::ITVBaseService>(binder);
    binder->linkToDeath(client.getDeathRecipient(), nullptr, 0);
    for (const auto& [module, listener] : std::exchange(access().listeners, {})) {
        EMAL_AddListener(module, listener);
    }
}

/** The platform's own function behind one of those below. */
template <typename Function> Function next(const char* symbol) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, symbol));
}

} // namespace

void connectToService() {
    if (access().isConnected) {
        return;
    }
    const auto binder = android::defaultServiceManager()->getService(android::String16("TVBaseService"));
    if (binder == nullptr) {
        throw LinkError("there is no television service; is the television, or kelutv-simulator, running?");
    }
    const bool wasMade = access().isClientMade;
    android::TVBaseClient& client = madeClient();
    if (wasMade) {
        attach(client, binder);
    }
    access().isConnected = true;
}

NoService::NoService() {
    access().withoutService = true;
    madeClient();
    tap::answer(answerZeros);
}

NoService::~NoService() {
    tap::answer(nullptr);
    access().withoutService = false;
}

} // namespace kelutv::tool

namespace android {

/** Goes before the platform's own. */
__attribute__((visibility("default"))) sp<IServiceManager> defaultServiceManager() {
    if (kelutv::tool::access().withoutService) {
        return new kelutv::tool::ZeroServices;
    }
    using Function = sp<IServiceManager> (*)();
    static const auto platform = kelutv::tool::next<Function>("_ZN7android21defaultServiceManagerEv");
    return platform();
}

} // namespace android

/** Goes before the platform's own: without a service there are no events, and nothing is touched to await them. */
extern "C" __attribute__((visibility("default"))) int
EMAL_AddListener(unsigned int module, void (*listener)(unsigned int, void*, unsigned int, void*)) {
    if (kelutv::tool::access().withoutService) {
        kelutv::tool::access().listeners.emplace_back(module, listener);
        return 0;
    }
    using Function = int (*)(unsigned int, kelutv::tool::Listener);
    static const auto platform = kelutv::tool::next<Function>("EMAL_AddListener");
    return platform(module, listener);
}
