#include "Crowd.h"

#include "bench/support/Failure.h"

#include <pthread.h>
#include <sys/mman.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <new>
#include <numeric>
#include <utility>

namespace kelutv::bench {

namespace {

constexpr size_t kMostCallers = 256;
constexpr size_t kLeave = SIZE_MAX;

} // namespace

/** What the callers share with whom they call for. */
struct Crowd::Shared {
    explicit Shared(size_t callers) {
        pthread_barrierattr_t attributes;
        ::pthread_barrierattr_init(&attributes);
        ::pthread_barrierattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED);
        ::pthread_barrier_init(&turn, &attributes, static_cast<unsigned int>(callers) + 1);
        ::pthread_barrierattr_destroy(&attributes);
    }

    /** A turn begins, or has ended, for all of them. */
    pthread_barrier_t turn{};
    std::atomic<size_t> call{0};
    std::atomic<bool> going{false};
    std::array<std::atomic<uint64_t>, kMostCallers> made{};
};

Crowd::Crowd(Kind kind, size_t callers, std::vector<Call> calls) : mCallers(callers), mCalls(std::move(calls)) {
    void* const memory = ::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    require(memory != MAP_FAILED && callers <= kMostCallers, "mmap");
    mShared = new (memory) Shared(callers);
    for (size_t caller = 0; caller < callers; ++caller) {
        if (kind == Kind::Threads) {
            mThreads.emplace_back([this, caller] { run(caller); });
        } else {
            mProcesses.emplace_back([this, caller] { run(caller); });
        }
    }
}

Crowd::~Crowd() {
    mShared->call = kLeave;
    ::pthread_barrier_wait(&mShared->turn);
    for (std::thread& thread : mThreads) {
        thread.join();
    }
    for (Child& process : mProcesses) {
        process.wait();
    }
    ::munmap(mShared, sizeof(*mShared));
}

void Crowd::run(size_t caller) const {
    for (;;) {
        ::pthread_barrier_wait(&mShared->turn);
        if (mShared->call == kLeave) {
            return;
        }
        const Call& call = mCalls[mShared->call];
        uint64_t made = 0;
        while (mShared->going.load(std::memory_order_relaxed)) {
            call(caller);
            ++made;
        }
        mShared->made[caller] = made;
        ::pthread_barrier_wait(&mShared->turn);
    }
}

double Crowd::rate(size_t call, std::chrono::milliseconds time) {
    mShared->call = call;
    mShared->going = true;
    ::pthread_barrier_wait(&mShared->turn);
    const auto start = std::chrono::steady_clock::now();
    std::this_thread::sleep_for(time);
    mShared->going = false;
    ::pthread_barrier_wait(&mShared->turn);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    const auto made = std::accumulate(mShared->made.begin(), mShared->made.begin() + mCallers, uint64_t{0});
    return static_cast<double>(made) / taken.count();
}

} // namespace kelutv::bench
