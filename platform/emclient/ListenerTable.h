#pragma once

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

namespace keluem {

using Listener = void (*)(unsigned int, void*, unsigned int, void*);

/** The listeners of this process, one per module, called by one thread. */
class ListenerTable {
public:
    /** The table of this process; never destroyed. */
    static ListenerTable& ofProcess();

    /** Sets the module's listener, in place of the one that it may have. Throws std::bad_alloc. */
    void set(unsigned int module, Listener listener);

    bool has(unsigned int module);

    /** The modules that have a listener, in ascending order. */
    std::vector<std::uint32_t> modules();

    /** Takes the module's listener out and waits for its call in progress, unless called from it. False without one. */
    bool remove(unsigned int module);

    /** Calls the listener of the event's module, if there is one; only for the delivery thread. */
    void deliver(unsigned int eventId, void* payload, unsigned int length);

private:
    Listener begin(unsigned int module);
    void end();

    std::mutex mMutex;
    std::condition_variable mCallEnded;
    std::map<unsigned int, Listener> mListeners;
    bool mCalling = false;
    unsigned int mCallingModule = 0;
    unsigned long mCalls = 0;
    std::thread::id mDeliveryThread;
};

} // namespace keluem
