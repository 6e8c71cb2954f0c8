#pragma once

#include "ServerConnection.h"
#include "ServerPoller.h"

#include <binder/Binder.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace android {

/** Serves this process's services. */
class SocketServer {
public:
    SocketServer();

    /** As IServiceManager::addService. A negative errno value when serving was asked for and has no threads. */
    status_t publish(const std::string& entry, sp<BBinder> object);
    /** The object published under an entry by this process; null for none. */
    sp<BBinder> published(const std::string& entry);
    /** Starts serving; false, with a line in the log, when there are no threads for it. publish() tries again. */
    bool serve();

private:
    struct Service {
        sp<BBinder> object;
        std::unique_ptr<ServerListener> listener;
    };

    bool replace(const std::string& entry, sp<BBinder>* object);
    status_t listen(const std::string& entry, const sp<BBinder>& object);
    int start();

    ServerPoller mPoller;
    std::mutex mMutex;
    bool mAsked = false;
    bool mServing = false;
    std::map<std::string, Service> mServices;
};

} // namespace android
