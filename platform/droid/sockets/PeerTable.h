#pragma once

#include <sys/types.h>

#include <atomic>
#include <cstddef>
#include <map>
#include <memory>
#include <mutex>

namespace android {

/** The processes that have connections to a server, and what each of them has. */
class PeerTable {
public:
    /** One process. */
    struct Peer {
        std::atomic<size_t> calls{0};
        size_t connections = 0;
    };

    /** The place of one connection in the table. */
    class Place {
    public:
        Place(PeerTable& table, pid_t process, Peer& peer) : mTable(table), mProcess(process), mPeer(peer) {}
        ~Place() { mTable.leave(mProcess); }
        Place(const Place&) = delete;
        Place& operator=(const Place&) = delete;

        Peer& peer() const { return mPeer; }

    private:
        PeerTable& mTable;
        const pid_t mProcess;
        Peer& mPeer;
    };

    /** A place for one more connection of a process; null when it, or all of them, have as many as they may. */
    std::unique_ptr<Place> enter(pid_t process);

private:
    void leave(pid_t process);

    std::mutex mMutex;
    size_t mConnections = 0;
    std::map<pid_t, Peer> mPeers;
};

} // namespace android
