#include "tools/kelutv/compliance/Journal.h"

#include "tools/kelutv/compliance/framework/Terms.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/Setters.h"
#include "tools/kelutv/text/Clock.h"
#include "tools/kelutv/text/ShellWord.h"
#include "wire/text/Shown.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <utility>

namespace kelutv::tool::compliance {

namespace {

constexpr char kPurpose[] = "put back";

[[noreturn]] void fail(const std::string& path) {
    throw ToolError(Exit::Failure,
                    "cannot write to " + wire::shown(path, wire::kMostOfPath) + ": " + std::strerror(errno));
}

bool isWritten(int file, const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
        const ssize_t count = ::write(file, text.data() + at, text.size() - at);
        if (count < 0 && errno != EINTR) {
            return false;
        }
        at += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    return true;
}

/** A new file stands in its folder for good when the folder is written, too. */
void syncFolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    const int descriptor = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        // Some file systems cannot, and keep the file all the same.
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

/** Puts the text into a file that was not there, for good. @return whether it could; errno says why not */
bool isMade(const std::string& path, const std::string& text) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0) {
        return false;
    }
    const bool isSafe = isWritten(file, text) && ::fsync(file) == 0;
    const int reason = errno;
    ::close(file);
    if (!isSafe) {
        ::unlink(path.c_str());
        errno = reason;
    }
    return isSafe;
}

/** Puts the text in place of what the file has, as a whole and for good. @throws ToolError */
void replace(const std::string& path, const std::string& text) {
    const std::string unfinished = path + '.' + std::to_string(::getpid());
    if (!isMade(unfinished, text)) {
        fail(path);
    }
    if (::rename(unfinished.c_str(), path.c_str()) != 0) {
        const int reason = errno;
        ::unlink(unfinished.c_str());
        errno = reason;
        fail(path);
    }
    syncFolderOf(path);
}

bool mayBeSet(const HeldState& held, const Terms& terms) {
    const auto setters = settersOf(held);
    return std::any_of(setters.begin(), setters.end(),
                       [&terms](const wire::Function* setter) { return mayCall(*setter, terms); });
}

} // namespace

Snapshot changeable(Snapshot snapshot, const Terms& terms) {
    auto& held = snapshot.held;
    held.erase(
        std::remove_if(held.begin(), held.end(), [&terms](const HeldState& each) { return !mayBeSet(each, terms); }),
        held.end());
    snapshot.missing.clear();
    return snapshot;
}

Snapshot journalIn(const std::string& path) {
    Snapshot snapshot = snapshotIn(path);
    if (snapshot.purpose != kPurpose) {
        const std::string name = wire::shown(path, wire::kMostOfPath);
        throw UsageError(name + " is no file that a run of 'kelutv compliance' has left; 'kelutv snapshot restore " +
                         shellWord(name) + "' sets what a snapshot has");
    }
    return snapshot;
}

std::string commandPuttingBack(const std::string& path) {
    return "kelutv compliance --put-back " + shellWord(wire::shown(path, wire::kMostOfPath));
}

Journal::Journal(std::string path) : mPath(std::move(path)) {
    mSnapshot.taken = textOfNow();
    mSnapshot.purpose = kPurpose;
    if (isMade(mPath, textOf(mSnapshot))) {
        return;
    }
    if (errno != EEXIST) {
        fail(mPath);
    }
    throw UsageError(wire::shown(mPath, wire::kMostOfPath) +
                     " is there, so that an earlier run has not put everything back, or another one is at work; when "
                     "none is, '" +
                     commandPuttingBack(mPath) + "' puts it back, and takes the file away");
}

Journal::~Journal() {
    if (!mHasValues) {
        remove();
    }
}

void Journal::keep(Snapshot snapshot) {
    mSnapshot = std::move(snapshot);
    mSnapshot.purpose = kPurpose;
    replace(mPath, textOf(mSnapshot));
    mHasValues = true;
}

std::set<std::string> Journal::states() const {
    std::set<std::string> names;
    for (const HeldState& held : mSnapshot.held) {
        names.insert(held.state);
    }
    return names;
}

std::vector<Restored> Journal::putBack(double limit) const {
    std::vector<Restored> restored = restore({mSnapshot.held, false, limit}, [](const Restored&) {});
    restored.erase(std::remove_if(restored.begin(), restored.end(),
                                  [](const Restored& each) { return each.isAsWanted() && each.call.empty(); }),
                   restored.end());
    return restored;
}

void Journal::remove() const { ::unlink(mPath.c_str()); }

} // namespace kelutv::tool::compliance
