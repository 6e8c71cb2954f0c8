#pragma once

#include "CallWorkers.h"
#include "ParkedConnections.h"
#include "PeerTable.h"
#include "ServerConnection.h"
#include "socket/UniqueFd.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace android {

/**
 * The one thread that waits for connections and for the calls on those that are idle.
 *
 * It hands a call to a thread that answers it, and itself refuses, at once, what is too much.
 */
class ServerPoller {
public:
    /** Gives the object that is reached under an entry. */
    using Published = std::function<sp<BBinder>(const std::string& entry)>;

    explicit ServerPoller(Published published);

    /** Makes ready to wait: 0 or an errno value. */
    int open();
    /** Starts waiting: 0 or an errno value. */
    int start();
    /** Waits for connections, too: 0 or an errno value. The listener stays for as long as the process. */
    int add(ServerListener& listener);

private:
    bool arm(ServerSocket* source, int operation, uint32_t events) const;
    [[noreturn]] void run();
    int timeout() const;
    void handle(ServerSocket* source, uint32_t events);

    void acceptFrom(ServerListener& listener);
    void accept(const ServerListener& listener, kq::UniqueFd socket, const kq::Peer& caller);
    bool acceptFailed(const ServerListener& listener, const kq::Peer& caller, int error);
    bool refuseOne(const ServerListener& listener);
    void resume();
    void logRefusal(const ServerListener& listener, const kq::Peer& caller);

    void park(std::unique_ptr<ServerConnection> connection);
    void refuseUnserved();

    const Published mPublished;
    kq::UniqueFd mEpoll;
    // Closed to have one with which to refuse a caller when there are no others.
    kq::UniqueFd mSpare;
    PeerTable mPeers;
    ParkedConnections mParked;
    CallWorkers mWorkers;
    std::unique_ptr<MessageBuffer> mBuffer;
    ServerListener* mPaused = nullptr;
    std::chrono::steady_clock::time_point mResume;
    std::chrono::steady_clock::time_point mNextRefusalLine;
};

} // namespace android
