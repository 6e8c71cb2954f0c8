#pragma once

#include "LifeLine.h"
#include "droid/Transport.h"
#include "socket/UniqueFd.h"

#include <array>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>

namespace android {

class ClientConnection;

/**
 * A service reached through its socket.
 *
 * Each call in progress has a connection of its own, so calls never wait for each other. Connections are kept for the
 * next call, where the thread that used one last finds it first: the same pair of threads then goes on talking.
 */
class SocketObject : public RemoteObject {
public:
    /** `watched` becomes the life line to the service's process. */
    SocketObject(std::string path, kq::UniqueFd watched);
    ~SocketObject() override;

    status_t transact(uint32_t code, const Parcel& data, Parcel* reply, uint32_t flags) override;
    status_t watch(std::function<void()> onDeath) override;

private:
    std::atomic<ClientConnection*>& placeOf(size_t thread) { return mIdle[thread % mIdle.size()]; }
    // `own` is the calling thread's number.
    std::unique_ptr<ClientConnection> takeOther(size_t own);
    std::unique_ptr<ClientConnection> takeOrConnect(size_t own, status_t* status);
    bool giveBackTo(size_t number, std::unique_ptr<ClientConnection>& connection);
    void giveBackElsewhere(size_t own, std::unique_ptr<ClientConnection> connection);
    status_t connect(std::chrono::milliseconds patience, std::unique_ptr<ClientConnection>* connection);
    status_t whyNotConnected(int error);
    bool beginOneWay();
    void endOneWay();
    status_t sendOneWay(uint32_t code, uint32_t flags, const Parcel& data);

    const std::shared_ptr<LifeLine> mLine;
    uint64_t mWatchId = 0;
    // More calls than this at once are served too; their connections are just not kept.
    std::array<std::atomic<ClientConnection*>, 64> mIdle{};
    // One-way calls share one connection, which keeps them in order.
    std::mutex mOneWayMutex;
    std::condition_variable mOneWayFree;
    bool mOneWayBusy = false;
    std::unique_ptr<ClientConnection> mOneWay;
};

} // namespace android
