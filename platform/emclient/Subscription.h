#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "ListenerTable.h"
#include "Poller.h"
#include "PublisherConnections.h"
#include "SubscriberEntry.h"

namespace keluem {

/** What this process listens to: the socket at which publishers connect, and the thread that reads their events. */
class Subscription {
public:
    /** The subscription of this process; never destroyed. */
    static Subscription& ofProcess();

    /** @name As the functions of emal.h, for arguments that are right. They throw std::bad_alloc.
     * @{
     */
    int addListener(unsigned int module, Listener listener);
    int removeListener(unsigned int module);
    /** @} */

private:
    using Clock = std::chrono::steady_clock;

    Subscription();

    int ensureEntry();
    int install(SubscriberEntry entry, DeferredLog& log);
    int startDelivery();
    void leaveRoom();

    int setListener(unsigned int module, Listener listener);
    std::vector<std::uint32_t> list();
    bool acceptWaiting(DeferredLog& log);

    void run();
    int timeToUpkeep() const;
    void upkeep();
    void tellVague();
    void serve();
    void acceptPublishers();
    void planToTell();
    void pauseAccepting();
    void listenAgain();
    void receiveFrom(PublisherConnection& connection, std::uint32_t events);

    const std::string mEntryName;
    ListenerTable& mListeners;

    std::mutex mMutex;
    Poller mPoller;
    SubscriberEntry mEntry;
    PublisherConnections mConnections{mPoller};
    bool mDelivering = false;
    bool mLeft = false;

    // Only for the delivery thread.
    std::unique_ptr<EventPacket> mPacket;
    Clock::time_point mNextLook;
    static constexpr Clock::time_point kNever = Clock::time_point::max();
    Clock::time_point mAcceptAgain = kNever;
    Clock::time_point mTell = kNever;
};

} // namespace keluem
