#include "python/shim/Events.h"

#include "python/shim/Interface.h"

#include <kelutv/link/TVBaseClient.h>

#include <sys/eventfd.h>
#include <unistd.h>

#include <cstring>
#include <deque>
#include <mutex>
#include <vector>

namespace kelutv::python {

namespace {

constexpr unsigned int kEvent = 0;
constexpr unsigned int kVbiData = 1;

struct Notice {
    kelutv_python_notice head;
    std::vector<char> payload;
};

/** Threads of the runtime put into it as long as the process lives. */
struct Queue {
    std::mutex mutex;
    std::deque<Notice> notices;
    std::size_t most = 0;
    unsigned long long count = 0;
    int readable = -1;
};

Queue& queue() {
    static auto* const queue = new Queue;
    return *queue;
}

void put(unsigned int kind, unsigned int id, const void* payload, unsigned int length) {
    const auto* const bytes = static_cast<const char*>(payload);
    if (bytes == nullptr) {
        length = 0;
    }
    Queue& all = queue();
    const std::lock_guard<std::mutex> lock(all.mutex);
    if (all.readable < 0) {
        return;
    }
    if (all.notices.size() >= all.most) {
        all.notices.pop_front();
    }
    all.notices.push_back({{++all.count, kind, id, length},
                           length == 0 ? std::vector<char>() : std::vector<char>(bytes, bytes + length)});
    if (all.notices.size() == 1) {
        ::eventfd_write(all.readable, 1);
    }
}

void emptied(const Queue& all) {
    eventfd_t count = 0;
    ::eventfd_read(all.readable, &count);
}

} // namespace

void takeEvent(int event, void* payload, unsigned int length, void* /*previous*/) {
    put(kEvent, static_cast<unsigned int>(event), payload, length);
}

void takeVbiData(unsigned int type, void* data, unsigned int length) { put(kVbiData, type, data, length); }

} // namespace kelutv::python

using kelutv::python::queue;

extern "C" {

int kelutv_python_notices_begin(unsigned int most) {
    auto& all = queue();
    const std::lock_guard<std::mutex> lock(all.mutex);
    all.most = most;
    if (all.readable < 0) {
        all.readable = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    }
    return all.readable;
}

void kelutv_python_events_begin(void) {
    android::TVBaseClient::registCallback([](unsigned int event, void* payload, unsigned int length, void* previous) {
        kelutv::python::takeEvent(static_cast<int>(event), payload, length, previous);
    });
}

int kelutv_python_notice_take(kelutv_python_notice* head, void* payload, unsigned int room) {
    auto& all = queue();
    const std::lock_guard<std::mutex> lock(all.mutex);
    if (all.notices.empty()) {
        return 0;
    }
    const kelutv::python::Notice& oldest = all.notices.front();
    *head = oldest.head;
    if (oldest.payload.size() > room) {
        return -1;
    }
    if (!oldest.payload.empty()) {
        std::memcpy(payload, oldest.payload.data(), oldest.payload.size());
    }
    all.notices.pop_front();
    if (all.notices.empty()) {
        kelutv::python::emptied(all);
    }
    return 1;
}

unsigned long long kelutv_python_notice_count(void) {
    auto& all = queue();
    const std::lock_guard<std::mutex> lock(all.mutex);
    return all.count;
}
}
