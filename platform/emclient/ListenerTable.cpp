#include "ListenerTable.h"

#include "Event.h"
#include "socket/ProcessLife.h"

namespace keluem {

ListenerTable& ListenerTable::ofProcess() {
    static ListenerTable* const table = new ListenerTable;
    return *table;
}

void ListenerTable::set(unsigned int module, Listener listener) {
    const std::lock_guard<std::mutex> lock(mMutex);
    mListeners.insert_or_assign(module, listener);
}

bool ListenerTable::has(unsigned int module) {
    const std::lock_guard<std::mutex> lock(mMutex);
    return mListeners.count(module) > 0;
}

std::vector<std::uint32_t> ListenerTable::modules() {
    const std::lock_guard<std::mutex> lock(mMutex);
    std::vector<std::uint32_t> modules;
    modules.reserve(mListeners.size());
    for (const auto& entry : mListeners) {
        modules.push_back(entry.first);
    }
    return modules;
}

bool ListenerTable::remove(unsigned int module) {
    std::unique_lock<std::mutex> lock(mMutex);
    const bool removed = mListeners.erase(module) > 0;
    if (std::this_thread::get_id() != mDeliveryThread) {
        const unsigned long call = mCalls;
        mCallEnded.wait(lock, [&] { return !mCalling || mCallingModule != module || mCalls != call; });
    }
    return removed;
}

void ListenerTable::deliver(unsigned int eventId, void* payload, unsigned int length) {
    const Listener listener = begin(moduleOf(eventId));
    if (listener == nullptr) {
        return;
    }
    kq::DeliveryGate& gate = kq::DeliveryGate::instance();
    if (gate.enter()) {
        listener(eventId, payload, length, nullptr);
        gate.leave();
    }
    end();
}

Listener ListenerTable::begin(unsigned int module) {
    const std::lock_guard<std::mutex> lock(mMutex);
    mDeliveryThread = std::this_thread::get_id();
    const auto found = mListeners.find(module);
    if (found == mListeners.end()) {
        return nullptr;
    }
    mCalling = true;
    mCallingModule = module;
    ++mCalls;
    return found->second;
}

void ListenerTable::end() {
    const std::lock_guard<std::mutex> lock(mMutex);
    mCalling = false;
    mCallEnded.notify_all();
}

} // namespace keluem
