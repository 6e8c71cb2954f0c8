#include "tools/interposition/Notices.h"

#include "tools/interposition/Next.h"

#include <kelutv/link/DeathNotifier.h>
#include <kelutv/link/TVBaseClient.h>

#include <keluem/emal.h>

#include <array>
#include <atomic>
#include <cerrno>

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

using Listener = void (*)(unsigned int, void*, unsigned int, void*);

/** What the program itself has each module listened to by; a module has one listener. */
std::array<std::atomic<Listener>, 0x10000> programListeners;

std::atomic<Listener>& programListener(unsigned int event) { return programListeners[event >> 16]; }

void notifyProgram(unsigned int eventId, void* msg, unsigned int msgLength, void* prev) {
    noticeObserver.event(eventId, msg, msgLength);
    if (const Listener listener = programListener(eventId)) {
        listener(eventId, msg, msgLength, prev);
    }
}

/** The library's own listener tells of its events itself. */
bool isProgramListener(Listener listener) {
    return noticeObserver.event != nullptr && listener != nullptr && listener != android::TVBaseClient::eventNotify;
}

} // namespace

void setNoticeObserver(const NoticeObserver& next) { noticeObserver = next; }

} // namespace kelutv::interposition

KELUTV_API int EMAL_AddListener(unsigned int module, void (*listener)(unsigned int, void*, unsigned int, void*)) {
    namespace interposition = kelutv::interposition;
    using Add = int (*)(unsigned int, interposition::Listener);
    static const auto platform = interposition::ofLibrary<Add>("EMAL_AddListener");
    if (platform == nullptr) {
        return -ENOSYS;
    }
    if (!interposition::isProgramListener(listener)) {
        return platform(module, listener);
    }
    const interposition::Listener before = interposition::programListener(module).exchange(listener);
    const int result = platform(module, interposition::notifyProgram);
    if (result != 0) {
        interposition::programListener(module) = before;
    }
    return result;
}

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
