#pragma once

#include <optional>
#include <string>
#include <vector>

#include "socket/RuntimeDirectory.h"
#include "socket/UniqueFd.h"

namespace keluem {

/** A publisher's view of the room in which the subscribers are found. */
class SubscriberRoom {
public:
    /** Opens the room; empty, with the reason in the log, when it cannot be used. */
    static std::optional<SubscriberRoom> open();

    /** Readable when entries have come or gone; -1 when the system gives no watch. */
    int watch() const { return mWatch.get(); }

    /** True when the room itself was deleted. */
    bool gone() const { return mGone; }

    /** Makes `news` give every entry again. */
    void lookAgain() { mLookAgain = true; }

    /** True when `news` is to be asked again though the watch says nothing. */
    bool hasUnread() const { return mLookAgain; }

    /**
     * The entries that have come since the last time, some of them perhaps known already; all of them the first time.
     * What processes that died too early have left is removed. Throws std::bad_alloc.
     * @return 0 or a negative errno value, when the room could not be read and will have to be looked at again
     */
    int news(std::vector<std::string>* entries);

    std::string pathOf(const std::string& entry) const { return mDirectory.pathOf(entry); }

private:
    explicit SubscriberRoom(kq::RuntimeDirectory directory);

    void readWatch(std::vector<std::string>* entries);
    bool isUnfinished(const std::string& entry) const;

    kq::RuntimeDirectory mDirectory;
    kq::UniqueFd mWatch;
    bool mGone = false;
    bool mLookAgain = true;
};

} // namespace keluem
