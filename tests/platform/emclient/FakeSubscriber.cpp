#include "FakeSubscriber.h"

#include "EventRecorder.h"
#include "support/Deadline.h"

#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace kelutv::test {

namespace {

constexpr std::size_t kLargestPacket = 4 + 65536;
constexpr unsigned int kProtocolVersion = 1;

std::string pathInRoom(const std::string& name) {
    runtimeDir();
    const auto room = kq::RuntimeDirectory::open("events");
    if (!room) {
        throw std::runtime_error("the event room cannot be opened");
    }
    return room->pathOf(name);
}

bool readable(int fd, std::chrono::milliseconds patience = kPatience) {
    pollfd waited{fd, POLLIN, 0};
    return ::poll(&waited, 1, static_cast<int>(patience.count())) == 1;
}

} // namespace

FakeSubscriber::FakeSubscriber(const std::string& name) : mPath(pathInRoom(name)) {
    const std::string unfinished = pathInRoom(".unfinished");
    mListener = kq::listenAt(unfinished);
    if (!mListener || std::rename(unfinished.c_str(), mPath.c_str()) != 0) {
        throw std::runtime_error("no socket at " + mPath);
    }
}

FakeSubscriber::~FakeSubscriber() { ::unlink(mPath.c_str()); }

void FakeSubscriber::rename(const std::string& name) {
    const std::string path = pathInRoom(name);
    if (std::rename(mPath.c_str(), path.c_str()) != 0) {
        throw std::runtime_error("no entry at " + path);
    }
    mPath = path;
}

void FakeSubscriber::limitBacklog(int waiting) {
    // The system lets one more wait than it is told.
    if (::listen(mListener.get(), waiting - 1) != 0) {
        throw std::runtime_error("the backlog cannot be limited");
    }
}

void FakeSubscriber::accept() {
    kq::Peer peer{};
    mConnection = readable(mListener.get()) ? kq::acceptFrom(mListener.get(), &peer) : kq::UniqueFd();
    if (!mConnection) {
        throw std::runtime_error("no publisher has connected");
    }
}

void FakeSubscriber::accept(const std::vector<unsigned int>& modules) {
    accept();
    tell(modules);
}

void FakeSubscriber::tell(const std::vector<unsigned int>& modules) {
    std::vector<unsigned int> words{kProtocolVersion, static_cast<unsigned int>(modules.size())};
    words.insert(words.end(), modules.begin(), modules.end());
    if (!send(words)) {
        throw std::runtime_error("the publisher cannot be told");
    }
}

bool FakeSubscriber::send(const std::vector<unsigned int>& words) {
    return ::send(mConnection.get(), words.data(), words.size() * sizeof(words[0]), MSG_NOSIGNAL | MSG_DONTWAIT) >= 0;
}

bool FakeSubscriber::isClosed() {
    std::vector<unsigned char> packet(kLargestPacket);
    while (readable(mConnection.get())) {
        if (kq::receivePacket(mConnection.get(), packet.data(), packet.size()) == 0) {
            return true;
        }
    }
    return false;
}

std::optional<unsigned int> FakeSubscriber::nextId() {
    std::vector<unsigned char> packet(kLargestPacket);
    unsigned int id = 0;
    if (!readable(mConnection.get()) ||
        kq::receivePacket(mConnection.get(), packet.data(), packet.size()) < sizeof(id)) {
        return std::nullopt;
    }
    std::memcpy(&id, packet.data(), sizeof(id));
    return id;
}

std::vector<unsigned int> FakeSubscriber::idsUntil(unsigned int last) {
    std::vector<unsigned int> ids;
    while (const auto id = nextId()) {
        ids.push_back(*id);
        if (*id == last) {
            break;
        }
    }
    return ids;
}

bool FakeSubscriber::hasConnection() const { return readable(mListener.get(), std::chrono::milliseconds(0)); }

bool FakeSubscriber::hasEvent() const { return readable(mConnection.get(), std::chrono::milliseconds(0)); }

void FakeSubscriber::die() {
    mListener = kq::UniqueFd();
    mConnection = kq::UniqueFd();
}

} // namespace kelutv::test
