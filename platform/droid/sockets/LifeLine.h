#pragma once

#include "socket/UniqueFd.h"

#include <cstdint>
#include <mutex>
#include <string>

namespace android {

/**
 * A client's connection to a service that carries no calls: its end is the end of the service's process.
 *
 * A service that has too many connections refuses it, which is no sign of its end.
 */
class LifeLine {
public:
    enum class State {
        Stands,
        Refused, // the process has refused it; its end will not be seen before renew()
        Ended,
    };

    LifeLine(std::string path, kq::UniqueFd socket) : mPath(std::move(path)), mSocket(std::move(socket)) {}

    const std::string& path() const { return mPath; }
    /** Takes in what has come; does not wait. */
    State look();
    /** Connects again when refused; the new connection may be refused in its turn. */
    State renew();
    /**
     * Whether a process that calls itself so is, or was until its end, the one at the other end; what is not known yet
     * of a living one is learned from it.
     */
    bool isOf(uint64_t instance);
    /** The connection, -1 without one; valid while the state is Stands. */
    int socket();

private:
    State end();
    State greeted();

    const std::string mPath;
    std::mutex mMutex;
    kq::UniqueFd mSocket;
    bool mGreeted = false;
    bool mEnded = false;
    uint64_t mInstance = 0;
};

} // namespace android
