#include "RawSocket.h"

#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"
#include "support/Deadline.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>

#include <cerrno>
#include <system_error>

namespace kelutv::test {

namespace {

kq::UniqueFd bounded(kq::UniqueFd socket, const char* what) {
    if (!socket) {
        throw std::system_error(errno, std::generic_category(), what);
    }
    const timeval patience{kPatience.count() / 1000, 0};
    ::setsockopt(socket.get(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof(patience));
    ::setsockopt(socket.get(), SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof(patience));
    return socket;
}

kq::UniqueFd listenInRoom(const std::string& path) {
    kq::RuntimeDirectory::open("services");
    return kq::listenAt(path);
}

} // namespace

RawService::RawService(const std::string& path) : mListener(bounded(listenInRoom(path), "listen")) {}

kq::UniqueFd RawService::acceptSilently() const {
    kq::Peer peer{};
    pollfd waiting{mListener.get(), POLLIN, 0};
    ::poll(&waiting, 1, static_cast<int>(kPatience.count()));
    return bounded(kq::acceptFrom(mListener.get(), &peer), "accept");
}

kq::UniqueFd RawService::accept(const Bytes& greeting) const {
    kq::UniqueFd connection = acceptSilently();
    sendRaw(connection, greeting);
    return connection;
}

kq::UniqueFd rawSilentConnection(const std::string& path) { return bounded(kq::connectTo(path), "connect"); }

kq::UniqueFd rawConnection(const std::string& path) {
    kq::UniqueFd connection = rawSilentConnection(path);
    receiveRaw(connection);
    return connection;
}

Bytes greeting(int32_t status, int32_t instance, int32_t version) {
    return replyOf({0x4B514452, version, status, 0, instance, 0});
}

bool sendRaw(const kq::UniqueFd& socket, const Bytes& packet) {
    return ::send(socket.get(), packet.data(), packet.size(), MSG_NOSIGNAL) >= 0;
}

Bytes receiveRaw(const kq::UniqueFd& socket) {
    Bytes packet(128 * 1024);
    const ssize_t length = ::recv(socket.get(), packet.data(), packet.size(), 0);
    if (length < 0 && errno != ECONNRESET) {
        throw std::system_error(errno, std::generic_category(), "receive");
    }
    packet.resize(length < 0 ? 0 : static_cast<size_t>(length));
    return packet;
}

Bytes head(uint32_t size, uint32_t code, uint32_t flags, int32_t status, uint32_t number) {
    return replyOf({static_cast<int32_t>(size), static_cast<int32_t>(code), static_cast<int32_t>(flags), status,
                    static_cast<int32_t>(number)});
}

Bytes message(const Bytes& head, const Bytes& body) {
    Bytes packet(head);
    packet.insert(packet.end(), body.begin(), body.end());
    return packet;
}

} // namespace kelutv::test
