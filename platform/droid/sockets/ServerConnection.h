#pragma once

#include "PeerTable.h"
#include "socket/SeqPacket.h"
#include "socket/UniqueFd.h"

#include <binder/Binder.h>

#include <chrono>
#include <memory>
#include <string>

namespace android {

/** What the server waits for. */
struct ServerSocket {
    explicit ServerSocket(bool listens) : isListener(listens) {}

    const bool isListener;
    kq::UniqueFd socket;
};

/** One name under which an object of this process is reached. */
struct ServerListener : ServerSocket {
    ServerListener() : ServerSocket(true) {}

    std::string entry;
    // Of those that are not asked for the time being.
    ServerListener* nextPaused = nullptr;
};

/** A connection to one object of this process. One part of the server has it at a time. */
struct ServerConnection : ServerSocket {
    ServerConnection() : ServerSocket(false) {}

    kq::Peer caller{};
    std::unique_ptr<PeerTable::Place> place;
    sp<BBinder> object;

    // Of the queue in which it waits for a thread.
    std::chrono::steady_clock::time_point queued;
    std::unique_ptr<ServerConnection> next;
    // Of the connections that are parked.
    ServerConnection* previousParked = nullptr;
    ServerConnection* nextParked = nullptr;
};

} // namespace android
