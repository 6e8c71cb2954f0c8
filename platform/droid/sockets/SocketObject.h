#pragma once

#include "SocketProtocol.h"
#include "droid/Transport.h"
#include "socket/UniqueFd.h"

#include <array>
#include <atomic>
#include <memory>
#include <mutex>
#include <string>

namespace android {

/**
 * A service reached through its socket.
 *
 * Each call in progress has a connection of its own, so calls never wait for each other. Connections are kept for the
 * next call, where the thread that used one last finds it first: the same pair of threads then goes on talking.
 */
class SocketObject : public RemoteObject {
public:
    /** `watched` is a connection that carries no calls: its end is the end of the service's process. */
    SocketObject(std::string path, kq::UniqueFd watched);
    ~SocketObject() override;

    status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) override;
    status_t watch(std::function<void()> onDeath) override;

private:
    class Connection;

    std::unique_ptr<Connection> takeConnection();
    void giveBack(std::unique_ptr<Connection> connection);
    std::unique_ptr<Connection> connect() const;
    bool serviceLives() const;
    status_t sendOneWay(const MessageHead& head, const Parcel& data);

    const std::string mPath;
    const kq::UniqueFd mWatched;
    uint64_t mWatchId = 0;
    // More calls than this at once are served too; their connections are just not kept.
    std::array<std::atomic<Connection*>, 32> mIdle{};
    // One-way calls share one connection, which keeps them in order.
    std::mutex mOneWayMutex;
    std::unique_ptr<Connection> mOneWay;
};

} // namespace android
