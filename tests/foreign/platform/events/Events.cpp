#include "foreign/platform/sockets/Sockets.h"

#include <keluem/emal.h>

#include <cerrno>
#include <cstdlib>
#include <map>
#include <mutex>
#include <thread>

namespace foreign {

namespace {

using Listener = void (*)(unsigned int, void*, unsigned int, void*);

constexpr unsigned int kModuleBits = 0xFFFF0000;

/** The listeners of this process, and the connection that events come in by. */
class Events {
public:
    /** 0, or a negative number when events cannot come. Where there is no folder there are none, and nobody is called.
     */
    int add(unsigned int module, Listener listener) {
        const std::lock_guard<std::mutex> lock(mMutex);
        if (!mIsConnected && !connect()) {
            return -ENOTCONN;
        }
        mListeners[module] = listener;
        return 0;
    }

    int remove(unsigned int module) {
        const std::lock_guard<std::mutex> lock(mMutex);
        return mListeners.erase(module) == 1 ? 0 : -ENOENT;
    }

private:
    bool connect() {
        const char* const folder = std::getenv("FOREIGN_FOLDER");
        if (folder == nullptr) {
            return true;
        }
        Descriptor socket = connectTo(folder, kEventSocket);
        // The first packet says that all later events come.
        if (!socket.isOpen() || !receive(socket)) {
            return false;
        }
        mIsConnected = true;
        std::thread([this, taken = std::move(socket)] { deliver(taken); }).detach();
        return true;
    }

    void deliver(const Descriptor& socket) {
        while (std::optional<Packet> event = receive(socket)) {
            if (const Listener listener = listenerOf(event->word); listener != nullptr) {
                listener(event->word, event->bytes.empty() ? nullptr : event->bytes.data(),
                         static_cast<unsigned int>(event->bytes.size()), nullptr);
            }
        }
        const std::lock_guard<std::mutex> lock(mMutex);
        mIsConnected = false;
    }

    Listener listenerOf(unsigned int event) {
        const std::lock_guard<std::mutex> lock(mMutex);
        const auto found = mListeners.find(event & kModuleBits);
        return found == mListeners.end() ? nullptr : found->second;
    }

    std::mutex mMutex;
    bool mIsConnected = false;
    std::map<unsigned int, Listener> mListeners;
};

/** Never destroyed: its thread runs until the process is gone. */
Events& events() {
    static auto* const events = new Events;
    return *events;
}

} // namespace

} // namespace foreign

int EMAL_AddListener(unsigned int module, void (*listener)(unsigned int, void*, unsigned int, void*)) {
    return foreign::events().add(module, listener);
}

int EMAL_RemoveListener(unsigned int module) { return foreign::events().remove(module); }
