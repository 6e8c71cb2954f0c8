#pragma once

#include "SocketServer.h"
#include "droid/Transport.h"
#include "socket/RuntimeDirectory.h"

#include <string>

namespace android {

/** Calls over Unix domain sockets; services are found by name in the runtime directory. */
class SocketTransport : public Transport {
public:
    SocketTransport();

    sp<IBinder> find(const String16& name) override;
    sp<IBinder> waitFor(const String16& name, std::chrono::milliseconds time) override;
    status_t publish(const String16& name, const sp<BBinder>& object, const ServiceTraits& traits) override;
    std::string place() const override;
    Vector<String16> names(int dumpPriorities) override;
    bool serve() override { return mServer.serve(); }

private:
    sp<IBinder> findIn(const kq::RuntimeDirectory& directory, const std::string& entry, int* error);

    SocketServer mServer;
};

} // namespace android
