#include <keluem/emal.h>

#include <cerrno>
#include <new>

#include "Event.h"
#include "Subscription.h"
#include "socket/Descriptors.h"

namespace {

bool isModule(unsigned int module) { return keluem::moduleOf(module) == module; }

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
    return withoutThrowing([=] { return keluem::Subscription::ofProcess().addListener(module, listener); });
}

int EMAL_RemoveListener(unsigned int module) {
    if (kq::inForkedChild()) {
        return -EPERM;
    }
    if (!isModule(module)) {
        return -EINVAL;
    }
    return withoutThrowing([=] { return keluem::Subscription::ofProcess().removeListener(module); });
}
