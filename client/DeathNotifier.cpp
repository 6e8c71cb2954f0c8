#include <kelutv/link/DeathNotifier.h>
#include <kelutv/link/TVBaseClient.h>

#include "EventModules.h"

#include <keluem/emal.h>

#include <cstdio>

using android::IBinder;
using android::IInterface;
using android::ITVBaseService;
using android::sp;
using android::TVBaseClient;
using android::wp;

DeathNotifier::DeathNotifier() = default;
DeathNotifier::~DeathNotifier() = default;

void DeathNotifier::binderDied(const wp<IBinder>&) {
    sp<ITVBaseService> service = TVBaseClient::self()->getBpTvbaseService();
    const sp<IBinder::DeathRecipient> recipient = TVBaseClient::self()->getDeathRecipient();
    std::fprintf(stderr, "E/TvbaseClient %s() BnTvbaseService died!\n", "binderDied");
    if (service != nullptr) {
        IInterface::asBinder(service)->unlinkToDeath(wp<IBinder::DeathRecipient>(recipient), nullptr, 0, nullptr);
        // Only this copy: the client keeps the proxy of the dead service, so that no command takes the unconnected way.
        service.clear();
    }
    for (const KELU_EM_MODE_E module : kelutv::internal::kEventModules) {
        EMAL_RemoveListener(module);
    }
}
