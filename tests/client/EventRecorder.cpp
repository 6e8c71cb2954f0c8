#include "client/EventRecorder.h"

#include "support/Deadline.h"

#include <keluem/emal.h>

#include <mutex>
#include <stdexcept>
#include <utility>

namespace kelutv::test {

namespace {

// A module that the client does not listen to: its events follow those published before them on the one thread.
constexpr unsigned int kMarkerModule = 0xF0000;

std::mutex gMutex;
std::vector<Event> gEvents;
unsigned int gMarkersSeen = 0;
unsigned int gMarkersSent = 0;

void note(const char* callback, int id, void* msg, unsigned int length, void* prev) {
    const std::lock_guard lock(gMutex);
    gEvents.push_back({callback, id, std::string(static_cast<const char*>(msg), length), prev});
}

void noteMarker(unsigned int, void*, unsigned int, void*) {
    const std::lock_guard lock(gMutex);
    ++gMarkersSeen;
}

bool allMarkersSeen() {
    const std::lock_guard lock(gMutex);
    return gMarkersSeen == gMarkersSent;
}

} // namespace

bool operator==(const Event& a, const Event& b) {
    return a.callback == b.callback && a.id == b.id && a.payload == b.payload && a.prev == b.prev;
}

std::ostream& operator<<(std::ostream& out, const Event& event) {
    return out << '{' << event.callback << ", " << event.id << ", \"" << event.payload << "\", " << event.prev << '}';
}

EventRecorder::EventRecorder() {
    if (EMAL_AddListener(kMarkerModule, noteMarker) != 0) {
        throw std::runtime_error("cannot listen to the marker events");
    }
}

EventRecorder::~EventRecorder() { EMAL_RemoveListener(kMarkerModule); }

void EventRecorder::first(int id, void* msg, unsigned int length, void* prev) { note("first", id, msg, length, prev); }

void EventRecorder::second(int id, void* msg, unsigned int length, void* prev) {
    note("second", id, msg, length, prev);
}

void EventRecorder::publish(unsigned int id, const std::string& payload) {
    if (mPublisher.publish(id, payload.data(), payload.size()) != 0) {
        throw std::runtime_error("cannot publish an event");
    }
}

std::vector<Event> EventRecorder::received() {
    ++gMarkersSent;
    publish(kMarkerModule);
    if (!eventually(allMarkersSeen)) {
        throw std::runtime_error("the marker event did not arrive");
    }
    const std::lock_guard lock(gMutex);
    return std::exchange(gEvents, {});
}

} // namespace kelutv::test
