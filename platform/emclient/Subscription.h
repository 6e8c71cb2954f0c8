#pragma once

#include <poll.h>

#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "socket/UniqueFd.h"

namespace keluem {

/** The listening socket of this process at which publishers connect, and the thread that reads their events. */
class Subscription {
public:
    /** The subscription of this process; never destroyed. */
    static Subscription& ofProcess();

    /** Makes the socket and the thread unless they are there. Returns 0 or a negative errno value. */
    int start();

    /** Tells publishers which modules have a listener now. Returns 0 or a negative errno value. */
    int tellModules();

private:
    struct Packet;

    Subscription();

    int open();
    int startDelivery();
    void leaveRoom();
    void closeInForkedChild();

    void run();
    void acceptConnection();
    void addConnection(kq::UniqueFd connection);
    void closeConnection(std::size_t index);
    bool receiveEvent(int connection);

    std::mutex mStart;
    bool mStarted = false;
    std::string mEntryPath;

    /** Held while descriptors come and go, so that a fork finds them all. */
    std::mutex mDescriptors;
    kq::UniqueFd mListener;
    std::vector<kq::UniqueFd> mConnections;

    // Only for the delivery thread.
    std::unique_ptr<Packet> mPacket;
    std::vector<pollfd> mPolled; // the listener, then the connections in their order
    bool mAcceptPaused = false;
};

} // namespace keluem
