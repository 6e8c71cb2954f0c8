#include <keluem/emal.h>

#include <cerrno>
#include <new>

#include "Event.h"
#include "ListenerTable.h"
#include "Subscription.h"
#include "socket/ProcessLife.h"

namespace {

bool isModule(unsigned int module) { return keluem::moduleOf(module) == module; }

int addListener(unsigned int module, keluem::Listener listener) {
    keluem::Subscription& subscription = keluem::Subscription::ofProcess();
    keluem::ListenerTable& table = keluem::ListenerTable::ofProcess();
    int error = subscription.start();
    if (error == 0 && table.set(module, listener)) {
        error = subscription.tellModules();
        if (error != 0) {
            table.remove(module);
        }
    }
    return error;
}

int removeListener(unsigned int module) {
    if (!keluem::ListenerTable::ofProcess().remove(module)) {
        return -ENOENT;
    }
    // Should the publishers not learn of it, the events that still come find no listener.
    keluem::Subscription::ofProcess().tellModules();
    return 0;
}

template <typename Function> int withoutThrowing(Function function) {
    try {
        return function();
    } catch (const std::bad_alloc&) {
        return -ENOMEM;
    }
}

} // namespace

int EMAL_AddListener(unsigned int module, void (*listener)(unsigned int, void*, unsigned int, void*)) {
    if (kq::inForkedChild()) {
        return -EPERM;
    }
    if (listener == nullptr || !isModule(module)) {
        return -EINVAL;
    }
    return withoutThrowing([=] { return addListener(module, listener); });
}

int EMAL_RemoveListener(unsigned int module) {
    if (kq::inForkedChild()) {
        return -EPERM;
    }
    if (!isModule(module)) {
        return -EINVAL;
    }
    return withoutThrowing([=] { return removeListener(module); });
}
