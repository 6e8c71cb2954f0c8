#include "SubscriberEntry.h"

#include <android/log.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>
#include <utility>

#include "Event.h"
#include "socket/Descriptors.h"
#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"

namespace keluem {

SubscriberEntry& SubscriberEntry::operator=(SubscriberEntry&& other) noexcept {
    remove();
    mListener = std::move(other.mListener);
    mPath = std::move(other.mPath);
    mDevice = other.mDevice;
    mNode = other.mNode;
    return *this;
}

std::string SubscriberEntry::newName() {
    std::uint32_t number = 0;
    static_cast<void>(::getrandom(&number, sizeof(number), 0));
    return std::to_string(::getpid()) + '-' + std::to_string(number);
}

int SubscriberEntry::open(const std::string& name) {
    const auto room = kq::RuntimeDirectory::open(kEventRoom);
    if (!room) {
        return -EACCES;
    }
    const std::string unfinished = room->pathOf('.' + newName());
    mListener = kq::listenAt(unfinished);
    if (!mListener) {
        const int error = errno;
        __android_log_print(ANDROID_LOG_ERROR, kLogTag, "listening at %s: %s", unfinished.c_str(),
                            std::strerror(error));
        return -error;
    }
    mPath = room->pathOf(name);
    return giveName(unfinished);
}

/** The entry gets its name only when the socket listens, so an entry that refuses a connection is a dead one. */
int SubscriberEntry::giveName(const std::string& unfinished) {
    struct stat entry {};
    if (::lstat(unfinished.c_str(), &entry) == 0 && ::rename(unfinished.c_str(), mPath.c_str()) == 0) {
        mDevice = entry.st_dev;
        mNode = entry.st_ino;
        return 0;
    }
    const int error = errno;
    ::unlink(unfinished.c_str());
    return -error;
}

bool SubscriberEntry::present() const {
    struct stat entry {};
    if (!mListener || ::lstat(mPath.c_str(), &entry) != 0) {
        return mListener && errno != ENOENT && errno != ENOTDIR;
    }
    return entry.st_dev == mDevice && entry.st_ino == mNode;
}

void SubscriberEntry::remove() {
    if (!kq::inForkedChild() && present()) {
        ::unlink(mPath.c_str());
    }
    mListener = kq::UniqueFd();
}

} // namespace keluem
