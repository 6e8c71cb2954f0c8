#pragma once

#include <keluem/publisher.h>

#include <ostream>
#include <string>
#include <vector>

namespace kelutv::test {

/** One event as a callback got it. */
struct Event {
    std::string callback;
    int id;
    std::string payload;
    void* prev;
};

bool operator==(const Event& a, const Event& b);
std::ostream& operator<<(std::ostream& out, const Event& event);

/** Publishes events and notes which of them reach the application's callbacks. */
class EventRecorder {
public:
    EventRecorder();
    ~EventRecorder();
    EventRecorder(const EventRecorder&) = delete;
    EventRecorder& operator=(const EventRecorder&) = delete;

    /** Two callbacks to register; they note their events under "first" and "second". */
    static void first(int id, void* msg, unsigned int length, void* prev);
    static void second(int id, void* msg, unsigned int length, void* prev);

    void publish(unsigned int id, const std::string& payload = "");

    /** What the callbacks got since the last call, once everything published has been delivered or dropped. */
    std::vector<Event> received();

private:
    keluem::Publisher mPublisher;
};

} // namespace kelutv::test
