#include "tools/kelutv/events/EventSubscription.h"

#include "tools/kelutv/events/EventQueue.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/service/ServiceLink.h"

#include <keluem/emal.h>
#include <kelutv/events.h>
#include <kelutv/linux_kelutv_notify.h>

#include <cstring>

namespace kelutv::tool {

namespace {

constexpr std::uint32_t kLibraryModules[] = {
    KELU_EM_MODE_ATVPLAYER, KELU_EM_MODE_FACTOY, KELU_EM_MODE_3DSIGNAL,  KELU_EM_MODE_VOLUME,
    KELU_EM_MODE_COMMON,    KELU_EM_MODE_CEC,    KELU_EM_MODE_SRCDETECT,
};

class LossRecipient : public android::IBinder::DeathRecipient {
public:
    void binderDied(const android::wp<android::IBinder>&) override { EventQueue::instance().putLoss(); }
};

void takeLibraryEvent(int event, void* payload, unsigned int length, void*) {
    EventQueue::instance().put(static_cast<std::uint32_t>(event), payload, length);
}

void takeModuleEvent(unsigned int event, void* payload, unsigned int length, void*) {
    EventQueue::instance().put(event, payload, length);
}

} // namespace

EventSubscription::EventSubscription(const std::set<std::uint32_t>& modules)
    : mService(requireService()), mRecipient(new LossRecipient), mModules(modules) {
    for (const std::uint32_t module : kLibraryModules) {
        mModules.erase(module);
    }
    if (mService->linkToDeath(mRecipient, nullptr, 0) == android::DEAD_OBJECT) {
        EventQueue::instance().putLoss();
    }
    linux_tv_registerCallbackFunc(takeLibraryEvent);
    for (const std::uint32_t module : mModules) {
        if (const int status = EMAL_AddListener(module, takeModuleEvent); status != 0) {
            throw ToolError(Exit::Failure, std::string("cannot listen to a module: ") + std::strerror(-status));
        }
    }
}

EventSubscription::~EventSubscription() {
    for (const std::uint32_t module : mModules) {
        EMAL_RemoveListener(module);
    }
    linux_tv_unRegisterCallbackFunc(takeLibraryEvent);
    mService->unlinkToDeath(android::wp<android::IBinder::DeathRecipient>(mRecipient), nullptr, 0, nullptr);
}

} // namespace kelutv::tool
