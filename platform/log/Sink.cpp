#include "Sink.h"

#include <kqlog/capture.h>
#include <pthread.h>

#include <atomic>

namespace kqlog {

namespace {

// Neither has a destructor, so messages logged while the process exits find both intact. The lock lets a writer pass
// before new readers, else a removal would wait as long as other threads log.
std::atomic<Sink*> gSink{nullptr};
pthread_rwlock_t gSinkInUse = PTHREAD_RWLOCK_WRITER_NONRECURSIVE_INITIALIZER_NP;

thread_local bool tInsideSink = false;

} // namespace

bool sinkInstalled() { return !tInsideSink && gSink.load(std::memory_order_acquire) != nullptr; }

bool offerToSink(int priority, const char* tag, const char* text) {
    if (!sinkInstalled()) {
        return false;
    }
    pthread_rwlock_rdlock(&gSinkInUse);
    Sink* sink = gSink.load(std::memory_order_relaxed);
    if (sink != nullptr) {
        tInsideSink = true;
        sink->write(priority, tag, text);
        tInsideSink = false;
    }
    pthread_rwlock_unlock(&gSinkInUse);
    return sink != nullptr;
}

void installSink(Sink* sink) {
    pthread_rwlock_wrlock(&gSinkInUse);
    gSink.store(sink, std::memory_order_release);
    pthread_rwlock_unlock(&gSinkInUse);
}

void removeSink() { installSink(nullptr); }

} // namespace kqlog
