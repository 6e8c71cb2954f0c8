#include "FakeSubscriber.h"

#include "EventRecorder.h"
#include "support/Deadline.h"

#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstring>
#include <stdexcept>
#include <vector>

namespace kelutv::test {

namespace {

constexpr std::size_t kLargestPacket = 4 + 65536;

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

FakeSubscriber::FakeSubscriber(const std::string& name, unsigned int module)
    : mPath(pathInRoom(name)), mListener(kq::listenAt(mPath)) {
    if (!mListener) {
        throw std::runtime_error("no socket at " + mPath);
    }
    writeModuleList(mPath, module);
}

FakeSubscriber::~FakeSubscriber() {
    ::unlink(mPath.c_str());
    removeModuleList(mPath);
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
    mConnection = kq::UniqueFd();
    mListener = kq::UniqueFd();
}

} // namespace kelutv::test
