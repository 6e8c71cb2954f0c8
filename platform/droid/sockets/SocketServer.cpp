#include "SocketServer.h"

#include "socket/Descriptors.h"
#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"

#include <android/log.h>

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace android {

namespace {

constexpr const char* kTag = "kqdroid";

status_t statusOf(int error) {
    if (error == EADDRINUSE) {
        return ALREADY_EXISTS;
    }
    return error == 0 ? UNKNOWN_ERROR : -error;
}

/** A listener at a path where none lives; empty, with the reason in errno, when there is one. */
kq::UniqueFd listenAtFree(const kq::RuntimeDirectory& directory, const std::string& path) {
    const kq::UniqueFd lock = directory.lock();
    if (!lock) {
        return kq::UniqueFd();
    }
    if (kq::isStale(path)) {
        ::unlink(path.c_str());
    }
    kq::UniqueFd listener = kq::listenAt(path);
    return listener;
}

} // namespace

SocketServer::SocketServer() : mPoller([this](const std::string& entry) { return published(entry); }) {}

sp<BBinder> SocketServer::published(const std::string& entry) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto service = mServices.find(entry);
    return service == mServices.end() ? nullptr : service->second.object;
}

status_t SocketServer::publish(const std::string& entry, sp<BBinder> object) {
    if (const int error = start(); error != 0) {
        return -error;
    }
    return replace(entry, &object) ? static_cast<status_t>(NO_ERROR) : listen(entry, object);
}

/** False when this process does not serve the name. What stood there is left in `object`, to go after the lock. */
bool SocketServer::replace(const std::string& entry, sp<BBinder>* object) {
    const std::lock_guard<std::mutex> lock(mMutex);
    const auto service = mServices.find(entry);
    if (service == mServices.end()) {
        return false;
    }
    std::swap(service->second.object, *object);
    return true;
}

status_t SocketServer::listen(const std::string& entry, const sp<BBinder>& object) {
    const auto directory = kq::RuntimeDirectory::open("services");
    if (!directory) {
        return PERMISSION_DENIED;
    }
    const std::string path = directory->pathOf(entry);
    auto listener = std::make_unique<ServerListener>();
    listener->entry = entry;
    listener->socket = listenAtFree(*directory, path);
    int error = listener->socket ? 0 : errno;
    if (error == EADDRINUSE) {
        // Another thread of this process may have taken the name meanwhile.
        sp<BBinder> added = object;
        if (replace(entry, &added)) {
            return NO_ERROR;
        }
    }
    if (error == 0) {
        const std::lock_guard<std::mutex> lock(mMutex);
        Service& service = mServices[entry];
        service = {object, std::move(listener)};
        error = mPoller.add(*service.listener);
        if (error != 0) {
            mServices.erase(entry);
        }
    }
    if (error != 0) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "serving %s: %s", path.c_str(),
                            error == EADDRINUSE ? "another process serves it" : std::strerror(error));
    }
    return error == 0 ? static_cast<status_t>(NO_ERROR) : statusOf(error);
}

/** Starts the threads that were asked for: 0 or an errno value. */
int SocketServer::start() {
    int error = 0;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        error = mAsked && !mServing ? mPoller.start() : 0;
        mServing = mServing || (mAsked && error == 0);
    }
    if (error != 0) {
        __android_log_print(ANDROID_LOG_ERROR, kTag, "serving callers: %s", std::strerror(error));
    }
    return error;
}

bool SocketServer::serve() {
    if (kq::inForkedChild()) {
        return false;
    }
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mAsked = true;
    }
    return start() == 0;
}

} // namespace android
