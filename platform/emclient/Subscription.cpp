#include "Subscription.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <iterator>
#include <new>
#include <utility>

#include "ModuleList.h"
#include "socket/Descriptors.h"
#include "socket/QuietThread.h"

namespace keluem {

namespace {

using std::chrono::milliseconds;

/** Until connections are accepted again that could not be, or were too many. */
constexpr milliseconds kAcceptPause{50};

/** Until a publisher is told what is wanted: listeners come several at a time. */
constexpr milliseconds kTellPause{50};

/** How often the thread looks whether the entry is still there. */
constexpr milliseconds kLookAtEntry{5000};

constexpr std::uint32_t kOneConnection = EPOLLIN | EPOLLONESHOT;

} // namespace

Subscription& Subscription::ofProcess() {
    static Subscription* const subscription = new Subscription;
    return *subscription;
}

Subscription::Subscription()
    : mEntryName(SubscriberEntry::newName()), mListeners(ListenerTable::ofProcess()),
      mPacket(std::make_unique<EventPacket>()), mNextLook(Clock::now() + kLookAtEntry) {
    kq::watchForks();
}

int Subscription::addListener(unsigned int module, Listener listener) {
    int error = ensureEntry();
    if (error == 0) {
        error = setListener(module, listener);
        if (error != 0) {
            mListeners.remove(module);
        }
    }
    return error;
}

int Subscription::setListener(unsigned int module, Listener listener) {
    DeferredLog log;
    const std::lock_guard<std::mutex> lock(mMutex);
    if (mListeners.has(module)) {
        mListeners.set(module, listener);
        return 0;
    }
    acceptWaiting(log); // what they have sent is from before this listener
    std::vector<std::uint32_t> modules = mListeners.modules();
    if (modules.size() == kMaxModules) {
        return -ENOSPC;
    }
    modules.insert(std::upper_bound(modules.begin(), modules.end(), module), module);
    const std::vector<std::uint32_t> words = ModuleList(std::move(modules)).packet();
    mConnections.startModule(module);
    mListeners.set(module, listener);
    return mConnections.tell(words);
}

int Subscription::removeListener(unsigned int module) {
    if (!mListeners.remove(module)) {
        return -ENOENT;
    }
    // Publishers that do not learn of it send events that find no listener.
    const std::lock_guard<std::mutex> lock(mMutex);
    static_cast<void>(mConnections.tell(list()));
    return 0;
}

std::vector<std::uint32_t> Subscription::list() { return ModuleList(mListeners.modules()).packet(); }

/** Makes the entry unless it is there. Opens it without the lock, since what is wrong with the room is logged. */
int Subscription::ensureEntry() {
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        if (mLeft || mEntry.present()) {
            return 0;
        }
    }
    SubscriberEntry entry;
    if (const int error = entry.open(mEntryName); error != 0) {
        return error;
    }
    DeferredLog log;
    const std::lock_guard<std::mutex> lock(mMutex);
    return mLeft || mEntry.present() ? 0 : install(std::move(entry), log);
}

int Subscription::install(SubscriberEntry entry, DeferredLog& log) {
    if (const int error = mPoller.open(); error != 0) {
        return error;
    }
    if (!mPoller.add(entry.listener(), kOneConnection, &mEntry)) {
        return -errno;
    }
    if (mEntry.listening()) {
        acceptWaiting(log);
        mPoller.remove(mEntry.listener());
    }
    mEntry = std::move(entry);
    const int error = mDelivering ? 0 : startDelivery();
    if (error != 0) {
        mEntry.remove();
    }
    return error;
}

int Subscription::startDelivery() {
    const int error = kq::startDetachedThread("keluem-events", kq::kDefaultStack, [this] { run(); });
    if (error == 0) {
        mDelivering = true;
        std::atexit([] { ofProcess().leaveRoom(); });
    }
    return -error;
}

void Subscription::leaveRoom() {
    if (!kq::inForkedChild()) {
        const std::lock_guard<std::mutex> lock(mMutex);
        mLeft = true;
        mEntry.remove();
    }
}

bool Subscription::acceptWaiting(DeferredLog& log) { return mConnections.accept(mEntry.listener(), log); }

void Subscription::run() {
    for (;;) {
        try {
            serve();
            upkeep();
        } catch (const std::bad_alloc&) {
            pauseAccepting();
            ::poll(nullptr, 0, kAcceptPause.count());
        }
    }
}

int Subscription::timeToUpkeep() const {
    const Clock::time_point next = std::min({mAcceptAgain, mTell, mNextLook});
    const auto left = std::chrono::ceil<milliseconds>(next - Clock::now());
    return static_cast<int>(std::max(left, milliseconds(0)).count());
}

void Subscription::upkeep() {
    const Clock::time_point now = Clock::now();
    if (now >= mAcceptAgain) {
        mAcceptAgain = kNever;
        listenAgain();
    }
    if (now >= mTell) {
        tellVague();
    }
    if (now >= mNextLook) {
        mNextLook = now + kLookAtEntry;
        static_cast<void>(ensureEntry());
    }
}

/** Later, where there is no memory for the list. */
void Subscription::tellVague() {
    try {
        const std::lock_guard<std::mutex> lock(mMutex);
        mConnections.tellVague(list());
        mTell = kNever;
    } catch (const std::bad_alloc&) {
        mTell = Clock::now() + kTellPause;
    }
}

void Subscription::serve() {
    epoll_event ready[16];
    const std::size_t count = mPoller.ready(ready, std::size(ready), timeToUpkeep());
    for (std::size_t i = 0; i < count; ++i) {
        if (ready[i].data.ptr == &mEntry) {
            acceptPublishers();
        } else {
            receiveFrom(*static_cast<PublisherConnection*>(ready[i].data.ptr), ready[i].events);
        }
    }
}

void Subscription::acceptPublishers() {
    bool all = false;
    {
        DeferredLog log;
        const std::lock_guard<std::mutex> lock(mMutex);
        all = acceptWaiting(log);
    }
    planToTell();
    if (all) {
        listenAgain();
    } else {
        pauseAccepting();
    }
}

void Subscription::planToTell() { mTell = std::min(mTell, Clock::now() + kTellPause); }

void Subscription::pauseAccepting() { mAcceptAgain = Clock::now() + kAcceptPause; }

void Subscription::listenAgain() {
    const std::lock_guard<std::mutex> lock(mMutex);
    mPoller.change(mEntry.listener(), kOneConnection, &mEntry);
}

/** Whether an event is wanted is decided when it is received: a listener that comes later is not called with it. */
void Subscription::receiveFrom(PublisherConnection& connection, std::uint32_t events) {
    bool wanted = false;
    {
        DeferredLog log;
        const std::lock_guard<std::mutex> lock(mMutex);
        if ((events & EPOLLOUT) != 0) {
            mConnections.noteSpace(connection);
            planToTell();
        }
        wanted = mConnections.receive(connection, mPacket.get(), log) == PublisherConnection::Received::Event &&
                 mListeners.has(moduleOf(mPacket->id()));
    }
    if (wanted) {
        if (mTell != kNever) {
            tellVague(); // now, since the listener may take its time
        }
        const auto length = static_cast<unsigned int>(mPacket->length());
        mListeners.deliver(mPacket->id(), length == 0 ? nullptr : mPacket->payload(), length);
    }
}

} // namespace keluem
