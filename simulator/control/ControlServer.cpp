#include "simulator/control/ControlServer.h"

#include "simulator/control/Waiting.h"
#include "simulator/output/Shortage.h"

#include "socket/QuietThread.h"
#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"

#include <fcntl.h>
#include <sys/eventfd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace kelutv::simulator {

namespace {

constexpr int kAcceptPauseMs = 100;

/** Gives as much of the answer as the client takes now; false when it is gone. */
bool give(int socket, std::deque<std::string>& answer) {
    while (!answer.empty()) {
        if (!kq::sendPacket(socket, answer.front().data(), answer.front().size())) {
            return errno == EAGAIN;
        }
        answer.pop_front();
    }
    return true;
}

} // namespace

ControlServer::ControlServer(Receiver receiver) : mReceiver(std::move(receiver)), mStop(::eventfd(0, EFD_CLOEXEC)) {
    const auto room = kq::RuntimeDirectory::open(kControlRoom);
    if (!room || !mStop) {
        throw std::runtime_error("cannot serve the control channel: the runtime directory cannot be used");
    }
    mPath = room->pathOf(kControlSocket);
    const kq::UniqueFd lock = room->lock();
    if (!lock) {
        throw std::runtime_error("cannot serve the control channel at " + mPath + ": its name cannot be locked");
    }
    if (kq::isStale(mPath)) {
        ::unlink(mPath.c_str());
    }
    mListener = kq::listenAt(mPath);
    if (!mListener) {
        throw std::runtime_error("cannot serve the control channel at " + mPath + ": " + std::strerror(errno));
    }
    mThread = kq::startQuietThread("control", [this] { serve(); });
}

ControlServer::~ControlServer() {
    ::unlink(mPath.c_str());
    mIsEnding = true;
    ::eventfd_write(mStop.get(), 1);
    mThread.join();
}

void ControlServer::serve() {
    bool isEnding = false;
    while (!mIsEnding && !isEnding) {
        withMemory([&] { isEnding = !serveOnce(); });
    }
}

bool ControlServer::serveOnce() {
    std::vector<pollfd> ready = waits();
    if (!waitForAny(ready.data(), ready.size(), std::exchange(mAcceptPaused, false) ? kAcceptPauseMs : -1)) {
        return true;
    }
    if (ready[0].revents != 0) {
        return false;
    }
    for (std::size_t i = mClients.size(); i-- > 0;) {
        if (ready[i + 2].revents != 0 && !attend(mClients[i])) {
            mClients.erase(mClients.begin() + static_cast<std::ptrdiff_t>(i));
        }
    }
    if (ready[1].revents != 0) {
        accept();
    }
    return true;
}

std::vector<pollfd> ControlServer::waits() const {
    std::vector<pollfd> waits{{mStop.get(), POLLIN, 0},
                              {mListener.get(), static_cast<short>(mAcceptPaused ? 0 : POLLIN), 0}};
    for (const Client& client : mClients) {
        waits.push_back({client.socket.get(), static_cast<short>(client.answer.empty() ? POLLIN : POLLOUT), 0});
    }
    return waits;
}

void ControlServer::accept() {
    kq::Peer peer{};
    kq::UniqueFd socket = kq::acceptFrom(mListener.get(), &peer);
    if (!socket) {
        // Out of descriptors: the client still waits, and asking again at once would only spin.
        mAcceptPaused = errno != EACCES;
        return;
    }
    if (::fcntl(socket.get(), F_SETFL, O_NONBLOCK) != 0) {
        return;
    }
    makeRoom();
    mClients.emplace_back();
    mClients.back().socket = std::move(socket);
    mClients.back().lastUse = ++mUses;
}

void ControlServer::makeRoom() {
    if (mClients.size() == kMostClients) {
        mClients.erase(std::min_element(mClients.begin(), mClients.end(), [](const Client& one, const Client& other) {
            return one.lastUse < other.lastUse;
        }));
    }
}

bool ControlServer::attend(Client& client) {
    client.lastUse = ++mUses;
    if (client.answer.empty() && !receive(client)) {
        return false;
    }
    return give(client.socket.get(), client.answer);
}

bool ControlServer::receive(Client& client) {
    std::array<char, kLongestPacket> packet{};
    const std::size_t length = kq::receivePacket(client.socket.get(), packet.data(), packet.size());
    if (!client.line.add(packet.data(), length)) {
        return false;
    }
    if (!client.line.isWhole()) {
        return true;
    }
    if (client.line.mark() != kLine) {
        return false;
    }
    const Answer answer = mReceiver(client.line.text());
    client.line.clear();
    client.answer = packetsOf(answer.ok ? kData : kComplaint, answer.text);
    return true;
}

} // namespace kelutv::simulator
