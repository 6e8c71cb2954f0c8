#pragma once

#include "UniqueFd.h"

#include <atomic>

namespace kq {

// One for all libraries of the process that contain this code; asked by each call that a process makes.
[[gnu::visibility("default")]] inline std::atomic<bool> gForkedChild{false};

/** Makes inForkedChild() work for children that are forked from now on; false when the system has no memory for it. */
bool watchForks();

/**
 * True in a process forked, without exec, from one in which the runtime was at work. The runtime's threads and
 * connections belong to the parent there, and its locks may be held for ever: nothing of it may be touched.
 */
inline bool inForkedChild() { return gForkedChild.load(std::memory_order_relaxed); }

[[noreturn]] void endProcessQuietly();

/**
 * Ends the process, quietly and at once, when it is a forked child. To be called by threads of the runtime when they
 * come back from the program's code, which may have forked: what they would go on with belongs to the parent.
 */
inline void endForkedChild() {
    if (inForkedChild()) {
        endProcessQuietly();
    }
}

/**
 * While one is there, no other thread forks, so that no descriptor is between its opening and its registration when a
 * child is made. To be held for calls that do not wait.
 */
class OpeningScope {
public:
    OpeningScope();
    ~OpeningScope();
    OpeningScope(const OpeningScope&) = delete;
    OpeningScope& operator=(const OpeningScope&) = delete;

    /** False, with the reason in errno, when nothing may be opened: in a forked child, or where forks go unseen. */
    bool usable() const;
    /** Registers what was just opened, moved to 3 or above; empty, with the reason in errno, when that fails. */
    UniqueFd adopt(int fd) const;

private:
    bool mUsable;
};

/**
 * Opens a descriptor of the runtime by `open`, which gives it or -1 with the reason in errno, and does not wait.
 *
 * All of the runtime's descriptors come from here. Each is 3 or above, since whatever has the number of a standard
 * descriptor gets what the program prints. A forked child has none of them: they are closed in it before it runs.
 *
 * @return empty on failure, with the reason in errno; EPERM in a forked child
 */
template <typename Open> UniqueFd openDescriptor(const Open& open) {
    const OpeningScope scope;
    return scope.usable() ? scope.adopt(open()) : UniqueFd();
}

} // namespace kq
