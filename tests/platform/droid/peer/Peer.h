#pragma once

#include "support/ChildProcess.h"

#include <binder/IBinder.h>

#include <memory>
#include <string>
#include <vector>

namespace kelutv::test {

/** Path of the peer program; its first argument names what it does, see peer.cpp. */
extern const char* const kPeerProgram;

/** A process of its own that serves a PeerService under one or more names. */
class Peer {
public:
    /** Returns once the names are served. */
    explicit Peer(const std::vector<std::string>& names = {"peer"});

    /** A new proxy of the object; throws when the process does not serve it. */
    android::sp<android::IBinder> binder(const std::string& name = "peer") const;

    pid_t pid() const { return mProcess.pid(); }
    bool alive() { return !mProcess.wait(std::chrono::milliseconds(0)); }
    /** SIGKILL; returns when the process is gone, and what it served with it. */
    void kill();
    bool waitUntilGone() { return mProcess.wait().has_value(); }

private:
    const std::vector<std::string> mNames;
    ChildProcess mProcess;
};

} // namespace kelutv::test
