#pragma once

#include "UniqueFd.h"

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kq {

/**
 * One room ("services", "events") of the private directory in which the runtime's sockets live.
 *
 * The directory is $KQDROID_RUNTIME_DIR, else $XDG_RUNTIME_DIR/kqdroid, else /tmp/kqdroid-<uid>. It is made when
 * missing and must be a directory of this user that nobody else may enter, by its path from the root.
 */
class RuntimeDirectory {
public:
    /** Opens one room; empty, with the reason in the log, when the directory cannot be used. */
    static std::optional<RuntimeDirectory> open(const char* room);

    /** Where a room is or would be. */
    static std::string pathOfRoom(const char* room);

    std::string pathOf(const std::string& entry) const { return mPath + '/' + entry; }
    const std::string& path() const { return mPath; }
    /** The names of the sockets in the room, sorted; nothing at all, with the reason in errno, when it cannot be read.
     */
    std::optional<std::vector<std::string>> entries() const;

    /** An inotify descriptor (non-blocking, close-on-exec) told of every entry that comes or goes. */
    UniqueFd watch() const;

    /**
     * Runs `check` now, whenever the room changes, and every 100 ms, until it gives true or the time is over; its last
     * answer.
     */
    bool waitUntil(std::chrono::milliseconds time, const std::function<bool()>& check) const;

    /**
     * An exclusive lock on the whole room, held by the returned descriptor; asked for during at most a second.
     *
     * Without it nothing in the room may be removed. Empty, with the reason in errno and the log, when it cannot be
     * had.
     */
    UniqueFd lock() const;

private:
    explicit RuntimeDirectory(std::string path) : mPath(std::move(path)) {}

    std::string mPath;
};

} // namespace kq
