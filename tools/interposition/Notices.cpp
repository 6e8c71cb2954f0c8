#include "tools/interposition/Notices.h"

#include "tools/interposition/Next.h"

#include <kelutv/link/DeathNotifier.h>
#include <kelutv/link/TVBaseClient.h>

namespace kelutv::interposition {

namespace {

NoticeObserver noticeObserver;

/** Where a program opened the library for itself alone, the next definition is not found but in the library. */
template <typename Function> Function ofLibrary(const char* symbol) {
    const auto found = next<Function>(symbol);
    if (found != nullptr) {
        return found;
    }
    void* const library = ::dlopen(KELUTV_CLIENT_SONAME, RTLD_LAZY | RTLD_NOLOAD);
    return library != nullptr ? reinterpret_cast<Function>(::dlsym(library, symbol)) : nullptr;
}

} // namespace

void setNoticeObserver(const NoticeObserver& next) { noticeObserver = next; }

} // namespace kelutv::interposition

/*
 * Both go before the client library's own, which are called behind the observer. The library hands both on by their
 * addresses, which the dynamic linker fills in.
 */
namespace android {

KELUTV_API void TVBaseClient::eventNotify(unsigned int eventId, void* msg, unsigned int msgLength, void* prev) {
    if (kelutv::interposition::noticeObserver.event != nullptr) {
        kelutv::interposition::noticeObserver.event(eventId, msg, msgLength);
    }
    using Notify = void (*)(unsigned int, void*, unsigned int, void*);
    static const auto library =
        kelutv::interposition::ofLibrary<Notify>("_ZN7android12TVBaseClient11eventNotifyEjPvjS1_");
    if (library != nullptr) {
        library(eventId, msg, msgLength, prev);
    }
}

} // namespace android

KELUTV_API void DeathNotifier::binderDied(const android::wp<android::IBinder>& who) {
    if (kelutv::interposition::noticeObserver.loss != nullptr) {
        kelutv::interposition::noticeObserver.loss();
    }
    using Died = void (*)(DeathNotifier*, const android::wp<android::IBinder>&);
    static const auto library =
        kelutv::interposition::ofLibrary<Died>("_ZN13DeathNotifier10binderDiedERKN7android2wpINS0_7IBinderEEE");
    if (library != nullptr) {
        library(this, who);
    }
}
