#pragma once

#include <sys/types.h>

#include <string>
#include <utility>

#include "socket/UniqueFd.h"

namespace keluem {

/** The listening socket of this process in the event room, and its entry there, removed with the object. */
class SubscriberEntry {
public:
    SubscriberEntry() = default;
    ~SubscriberEntry() { remove(); }
    SubscriberEntry(SubscriberEntry&& other) noexcept { *this = std::move(other); }
    SubscriberEntry& operator=(SubscriberEntry&& other) noexcept;
    SubscriberEntry(const SubscriberEntry&) = delete;
    SubscriberEntry& operator=(const SubscriberEntry&) = delete;

    /** A name that no other subscriber has. */
    static std::string newName();

    /** Makes the entry of that name; what is wrong with the directory is logged. Returns 0 or a negative errno value.
     */
    int open(const std::string& name);

    bool listening() const { return static_cast<bool>(mListener); }
    int listener() const { return mListener.get(); }

    /** False when there is no entry, or somebody has removed or replaced it. */
    bool present() const;

    void remove();

private:
    int giveName(const std::string& unfinished);

    kq::UniqueFd mListener;
    std::string mPath;
    dev_t mDevice = 0;
    ino_t mNode = 0;
};

} // namespace keluem
