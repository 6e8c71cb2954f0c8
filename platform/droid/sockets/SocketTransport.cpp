#include "SocketTransport.h"

#include "EntryName.h"
#include "SocketObject.h"
#include "droid/BpBinder.h"
#include "socket/ProcessLife.h"

#include <android/log.h>

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace android {

namespace {

constexpr const char* kTag = "kqdroid";
constexpr const char* kServicesRoom = "services";

/** A connection to the service; empty, with the reason in errno, when there is none. */
kq::UniqueFd connectToService(const kq::RuntimeDirectory& directory, const std::string& path) {
    kq::UniqueFd connection = kq::connectTo(path);
    if (connection || errno != ECONNREFUSED) {
        return connection;
    }
    // Nobody listens: the service is dead, or is publishing the name just now and holds the lock until it listens.
    const kq::UniqueFd lock = directory.lock();
    if (!lock) {
        return kq::UniqueFd();
    }
    connection = kq::connectTo(path);
    if (!connection && errno == ECONNREFUSED) {
        ::unlink(path.c_str());
        errno = ENOENT;
    }
    return connection;
}

std::vector<std::string> entriesOf(const kq::RuntimeDirectory& directory) {
    std::optional<std::vector<std::string>> entries = directory.entries();
    if (!entries) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "reading %s: %s", directory.path().c_str(), std::strerror(errno));
        return {};
    }
    return std::move(*entries);
}

} // namespace

SocketTransport::SocketTransport() { kq::watchForks(); }

/** Null, with an errno value in `error`, where there is no service. */
sp<IBinder> SocketTransport::findIn(const kq::RuntimeDirectory& directory, const std::string& entry, int* error) {
    if (const sp<BBinder> own = mServer.published(entry); own != nullptr) {
        return own;
    }
    std::string path = directory.pathOf(entry);
    kq::UniqueFd connection = connectToService(directory, path);
    if (!connection) {
        *error = errno;
        return nullptr;
    }
    return new BpBinder(std::make_unique<SocketObject>(std::move(path), std::move(connection)));
}

sp<IBinder> SocketTransport::find(const String16& name) { return waitFor(name, std::chrono::milliseconds(0)); }

sp<IBinder> SocketTransport::waitFor(const String16& name, std::chrono::milliseconds time) {
    const std::optional<kq::RuntimeDirectory> directory = kq::RuntimeDirectory::open(kServicesRoom);
    if (!directory) {
        return nullptr;
    }
    const std::string entry = entryNameOf(name);
    sp<IBinder> found;
    int error = 0;
    directory->waitUntil(time, [&] {
        found = findIn(*directory, entry, &error);
        return found != nullptr;
    });
    if (found == nullptr && error != ENOENT) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "calling %s: %s", directory->pathOf(entry).c_str(),
                            std::strerror(error));
    }
    return found;
}

status_t SocketTransport::publish(const String16& name, const sp<BBinder>& object, const ServiceTraits&) {
    return mServer.publish(entryNameOf(name), object);
}

std::string SocketTransport::place() const { return "in " + kq::RuntimeDirectory::pathOfRoom(kServicesRoom); }

Vector<String16> SocketTransport::names(int) {
    Vector<String16> names;
    const std::optional<kq::RuntimeDirectory> directory = kq::RuntimeDirectory::open(kServicesRoom);
    if (!directory) {
        return names;
    }
    for (const std::string& entry : entriesOf(*directory)) {
        int error = 0;
        if (findIn(*directory, entry, &error) != nullptr) {
            names.push_back(serviceNameOf(entry));
        }
    }
    return names;
}

} // namespace android
