#include "simulator/control/ControlClient.h"

#include "simulator/control/ControlMessage.h"

#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"

#include <poll.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace kelutv::simulator {

namespace {

kq::UniqueFd connectToSimulator() {
    const auto room = kq::RuntimeDirectory::open(kControlRoom);
    if (!room) {
        throw NoSimulator("the runtime directory cannot be used");
    }
    const std::string path = room->pathOf(kControlSocket);
    kq::UniqueFd socket = kq::connectTo(path);
    if (!socket) {
        const bool nobody = errno == ENOENT || errno == ECONNREFUSED;
        throw NoSimulator(nobody ? "no simulator is running (nothing listens at " + path + ")"
                                 : "cannot reach the simulator at " + path + ": " + std::strerror(errno));
    }
    return socket;
}

} // namespace

ControlClient::ControlClient(int patienceMs) : mSocket(connectToSimulator()), mPatienceMs(patienceMs) {}

Answer ControlClient::ask(const std::string& line) {
    if (line.size() > kLongestLine) {
        throw std::invalid_argument("a line has at most " + std::to_string(kLongestLine) + " characters");
    }
    if (line.find_first_of(std::string("\n\0", 2)) != std::string::npos) {
        throw std::invalid_argument("a line has neither line ends nor zeros in it");
    }
    send(line);
    std::vector<char> packet(kLongestPacket);
    ControlMessage answer(kLongestAnswer);
    while (!answer.isWhole()) {
        wait(POLLIN);
        const std::size_t length = kq::receivePacket(mSocket.get(), packet.data(), packet.size());
        if (!answer.add(packet.data(), length)) {
            throw NoSimulator("the simulator is gone");
        }
    }
    return {answer.mark() == kData, answer.text()};
}

void ControlClient::send(const std::string& line) {
    for (const std::string& packet : packetsOf(kLine, line)) {
        wait(POLLOUT);
        if (!kq::sendPacket(mSocket.get(), packet.data(), packet.size())) {
            throw NoSimulator("the simulator is gone");
        }
    }
}

void ControlClient::wait(short events) const {
    pollfd ready{mSocket.get(), events, 0};
    if (::poll(&ready, 1, mPatienceMs) == 0) {
        throw NoSimulator("the simulator does not answer");
    }
}

} // namespace kelutv::simulator
