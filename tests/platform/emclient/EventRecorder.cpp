#include "EventRecorder.h"

#include "support/Deadline.h"

#include <keluem/emal.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <utility>

namespace kelutv::test {

namespace {

std::mutex mutex;
std::vector<RecordedEvent> events;

void record(unsigned int id, void* payload, unsigned int length, void* previous) {
    const bool aligned = reinterpret_cast<std::uintptr_t>(payload) % alignof(std::max_align_t) == 0;
    const char* bytes = static_cast<const char*>(payload);
    const std::lock_guard<std::mutex> lock(mutex);
    events.push_back({id, std::string(bytes, bytes + length), payload == nullptr, previous == nullptr, aligned});
}

std::size_t recorded() {
    const std::lock_guard<std::mutex> lock(mutex);
    return events.size();
}

int subscribe(unsigned int module) {
    runtimeDir();
    return EMAL_AddListener(module, record);
}

} // namespace

const RuntimeDir& runtimeDir() {
    static const RuntimeDir directory;
    return directory;
}

std::string eventRoom() { return runtimeDir().path() + "/events"; }

std::vector<std::string> eventEntries() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(eventRoom())) {
        names.push_back(entry.path().filename());
    }
    return names;
}

std::string ownEntry() {
    const std::string prefix = std::to_string(::getpid()) + '-';
    for (const std::string& entry : eventEntries()) {
        if (entry.rfind(prefix, 0) == 0) {
            return eventRoom() + '/' + entry;
        }
    }
    return "";
}

std::size_t entriesOf(pid_t process) {
    const std::vector<std::string> names = eventEntries();
    const std::string prefix = std::to_string(process) + '-';
    return static_cast<std::size_t>(std::count_if(
        names.begin(), names.end(), [&prefix](const std::string& name) { return name.rfind(prefix, 0) == 0; }));
}

EventRecorder::EventRecorder(unsigned int module) : mModule(module), mStatus(subscribe(module)) {}

EventRecorder::~EventRecorder() {
    EMAL_RemoveListener(mModule);
    const std::lock_guard<std::mutex> lock(mutex);
    events.clear();
}

std::vector<RecordedEvent> EventRecorder::take(std::size_t count) {
    eventually([count] { return recorded() >= count; });
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(events, {});
}

std::vector<unsigned int> EventRecorder::takeIds(std::size_t count) {
    std::vector<unsigned int> ids;
    for (const RecordedEvent& event : take(count)) {
        ids.push_back(event.id);
    }
    return ids;
}

} // namespace kelutv::test
