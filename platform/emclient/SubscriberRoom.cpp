#include "SubscriberRoom.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include "Event.h"

namespace keluem {

bool SubscriberRoom::follow() {
    readWatch();
    if (mDirectory) {
        return true;
    }
    mDirectory = kq::RuntimeDirectory::open(kEventRoom);
    if (!mDirectory) {
        return false;
    }
    mWatch = mDirectory->watch();
    mChanged = true;
    return true;
}

bool SubscriberRoom::changed() {
    const bool unwatched = !mWatch; // no inotify to be had: the room is looked through each time
    return std::exchange(mChanged, false) || unwatched;
}

std::vector<std::string> SubscriberRoom::entries() const {
    std::vector<std::string> names;
    if (mDirectory) {
        names = mDirectory->entries().value_or(std::vector<std::string>());
    }
    const auto unfinished = [](const std::string& name) { return name.front() == '.'; };
    names.erase(std::remove_if(names.begin(), names.end(), unfinished), names.end());
    return names;
}

void SubscriberRoom::readWatch() {
    alignas(inotify_event) char buffer[4096];
    ssize_t size = 0;
    while (mWatch && (size = ::read(mWatch.get(), buffer, sizeof(buffer))) > 0) {
        mChanged = true;
        for (ssize_t at = 0; at < size;) {
            const auto* change = reinterpret_cast<const inotify_event*>(buffer + at);
            if ((change->mask & IN_IGNORED) != 0) { // the room itself was deleted
                mDirectory.reset();
            }
            at += static_cast<ssize_t>(sizeof(inotify_event) + change->len);
        }
    }
}

} // namespace keluem
