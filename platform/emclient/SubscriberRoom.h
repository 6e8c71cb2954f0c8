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
    /** Opens the room if it is not open or was deleted, and learns of changes. False when it cannot be used. */
    bool follow();

    /** Tells, once, whether entries may have come since the last answer. */
    bool changed();

    /** The subscribers' entries. */
    std::vector<std::string> entries() const;

    std::string pathOf(const std::string& entry) const { return mDirectory->pathOf(entry); }

private:
    void readWatch();

    std::optional<kq::RuntimeDirectory> mDirectory;
    kq::UniqueFd mWatch;
    bool mChanged = false;
};

} // namespace keluem
