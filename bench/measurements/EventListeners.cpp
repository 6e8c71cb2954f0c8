#include "EventListeners.h"

#include "bench/support/Failure.h"
#include "bench/support/Pinning.h"

#include <keluem/emal.h>

#include <semaphore.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <thread>

namespace kelutv::bench {

namespace {

constexpr time_t kPatienceSeconds = 30;
constexpr std::chrono::milliseconds kSlowness{1};

/** Counts what one listener gets, and tells of every burst. */
class Counter {
public:
    Counter(bool slow, sem_t& bursts) : mSlow(slow), mBursts(bursts) {}

    void count() {
        if (mSlow) {
            std::this_thread::sleep_for(kSlowness);
        } else if (++mCount % EventListeners::kBurst == 0) {
            ::sem_post(&mBursts);
        }
    }

private:
    const bool mSlow;
    sem_t& mBursts;
    int mCount = 0;
};

// Of a listener's process: what the callback counts with.
Counter* theEvents = nullptr;

void onEvent(unsigned int, void*, unsigned int, void*) { theEvents->count(); }

} // namespace

struct EventListeners::Shared {
    /** Posted by each listener that listens, and by each that has had a burst. */
    sem_t posts;
};

EventListeners::EventListeners(size_t count, bool oneIsSlow, size_t packetBytes)
    : mOneIsSlow(oneIsSlow), mPacket(packetBytes) {
    void* const memory = ::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    require(memory != MAP_FAILED, "mmap");
    mShared = static_cast<Shared*>(memory);
    ::sem_init(&mShared->posts, 1, 0);
    for (size_t listener = 0; listener < count; ++listener) {
        int ends[2];
        require(::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) == 0, "socketpair");
        mProcesses.emplace_back([this, socket = ends[1], slow = isSlow(listener)] {
            Counter events(slow, mShared->posts);
            Counter packets(slow, mShared->posts);
            theEvents = &events;
            if (EMAL_AddListener(kEvent & 0xFFFF0000U, onEvent) != 0) {
                giveUp("a listener cannot listen");
            }
            ::sem_post(&mShared->posts);
            std::array<char, 256> packet;
            while (::recv(socket, packet.data(), packet.size(), 0) > 0) {
                packets.count();
            }
        });
        ::close(ends[1]);
        mSockets.push_back(ends[0]);
    }
    waitForAll(count);
}

EventListeners::~EventListeners() {
    for (const int socket : mSockets) {
        ::close(socket);
    }
    mProcesses.clear();
    ::munmap(mShared, sizeof(*mShared));
}

void EventListeners::pin() const {
    for (const Child& process : mProcesses) {
        pinAnswerer(process.process(), Pinning::TwoCores);
    }
}

void EventListeners::sendBare() const {
    for (size_t listener = 0; listener < mSockets.size(); ++listener) {
        const int flags = isSlow(listener) ? MSG_DONTWAIT : 0;
        const ssize_t sent = ::send(mSockets[listener], mPacket.data(), mPacket.size(), MSG_NOSIGNAL | flags);
        require(sent > 0 || errno == EAGAIN, "send");
    }
}

void EventListeners::awaitBurst() const { waitForAll(mSockets.size() - (mOneIsSlow ? 1 : 0)); }

void EventListeners::waitForAll(size_t count) const {
    timespec end{};
    ::clock_gettime(CLOCK_REALTIME, &end);
    end.tv_sec += kPatienceSeconds;
    for (; count > 0; --count) {
        require(::sem_timedwait(&mShared->posts, &end) == 0, "waiting for listeners");
    }
}

} // namespace kelutv::bench
