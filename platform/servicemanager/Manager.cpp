#include "Manager.h"

#include "Answers.h"
#include "droid/InterfaceToken.h"
#include "droid/kernel/ServiceManagerProtocol.h"

#include <binder/IPCThreadState.h>

#include <utility>

namespace servicemanager {

using android::BinderLevel;
using android::status_t;

Manager::Manager(android::KernelBinder& binder, std::set<uid_t> registrars)
    : mBinder(binder), mRegistry(std::move(registrars)) {}

const android::String16& Manager::getInterfaceDescriptor() const { return android::serviceManagerInterface(); }

status_t Manager::onTransact(uint32_t code, const android::Parcel& data, android::Parcel* reply, uint32_t flags) {
    if (code > LAST_CALL_TRANSACTION || reply == nullptr) {
        return BBinder::onTransact(code, data, reply, flags);
    }
    const android::InterfaceToken token = android::readInterfaceToken(data, android::serviceManagerInterface());
    // Who writes no known token hears what a manager of this process's own level says.
    const bool latest = token.level.value_or(android::binderLevel()) == BinderLevel::k30;
    if (!token.accepted) {
        return latest ? status_t{android::BAD_TYPE} : kEarlierFailure;
    }
    const Request request{mBinder, mRegistry, android::IPCThreadState::self()->getCallingUid(), code, data, reply};
    return latest ? answerLatest(request) : answerEarlier(request);
}

} // namespace servicemanager
