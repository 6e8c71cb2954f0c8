#pragma once

#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"
#include "socket/UniqueFd.h"

#include <binder/Binder.h>

#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace android {

/** Serves this process's services: one thread waits for connections, each connection has a thread of its own. */
class SocketServer {
public:
    SocketServer();

    status_t publish(const std::string& entry, sp<BBinder> object);
    /** The object published under an entry by this process; null for none. */
    sp<BBinder> published(const std::string& entry);
    void serve();

private:
    struct Service {
        std::string entry;
        kq::UniqueFd listener;
        sp<BBinder> object;
    };

    status_t listen(const std::string& entry, const sp<BBinder>& object);
    [[noreturn]] void acceptConnections();
    void accept(const Service* service);
    void serveConnection(kq::UniqueFd socket, kq::Peer caller, const sp<BBinder>& object);
    void waitForRoom();
    void connectionEnded();

    const kq::UniqueFd mEpoll;
    std::mutex mMutex;
    std::condition_variable mRoom;
    size_t mConnections = 0;
    bool mServing = false;
    std::map<std::string, std::unique_ptr<Service>> mServices;
};

} // namespace android
