#include "SubscriberRoom.h"

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <utility>

#include "Event.h"
#include "socket/SeqPacket.h"

namespace keluem {

namespace {

/** Longer than any process takes from making its socket to listening at it. */
constexpr std::time_t kLongestStart = 60;

bool isOld(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && status.st_mtime < std::time(nullptr) - kLongestStart;
}

} // namespace

std::optional<SubscriberRoom> SubscriberRoom::open() {
    std::optional<kq::RuntimeDirectory> directory = kq::RuntimeDirectory::open(kEventRoom);
    return directory ? std::optional(SubscriberRoom(std::move(*directory))) : std::nullopt;
}

SubscriberRoom::SubscriberRoom(kq::RuntimeDirectory directory)
    : mDirectory(std::move(directory)), mWatch(mDirectory.watch()) {}

int SubscriberRoom::news(std::vector<std::string>* entries) {
    readWatch(entries);
    if (!mLookAgain && mWatch) {
        return 0;
    }
    const std::optional<std::vector<std::string>> all = mDirectory.entries();
    if (!all) {
        mLookAgain = true;
        return -errno;
    }
    entries->clear();
    for (const std::string& entry : *all) {
        if (!isUnfinished(entry)) {
            entries->push_back(entry);
        } else if (const std::string path = pathOf(entry); isOld(path) && kq::isStale(path)) {
            ::unlink(path.c_str());
        }
    }
    mLookAgain = false;
    return 0;
}

/** A subscriber's entry gets its name when its socket listens; before that the name begins with a dot. */
bool SubscriberRoom::isUnfinished(const std::string& entry) const { return entry.front() == '.'; }

void SubscriberRoom::readWatch(std::vector<std::string>* entries) {
    alignas(inotify_event) char buffer[4096];
    ssize_t size = 0;
    while (mWatch && (size = ::read(mWatch.get(), buffer, sizeof(buffer))) > 0) {
        for (ssize_t at = 0; at < size;) {
            const auto* change = reinterpret_cast<const inotify_event*>(buffer + at);
            mGone = mGone || (change->mask & IN_IGNORED) != 0;
            mLookAgain = mLookAgain || (change->mask & IN_Q_OVERFLOW) != 0;
            if ((change->mask & IN_MOVED_TO) != 0 && !isUnfinished(change->name)) {
                entries->push_back(change->name);
            }
            at += static_cast<ssize_t>(sizeof(inotify_event) + change->len);
        }
    }
}

} // namespace keluem
