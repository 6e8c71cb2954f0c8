#include "OtherUser.h"

#include "PeerProtocol.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace kelutv::test {

namespace {

sockaddr_un addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
    return address;
}

int newSocket() { return ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0); }

} // namespace

bool become(const std::string& user) {
    const auto uid = static_cast<uid_t>(std::strtoul(user.c_str(), nullptr, 10));
    if (::setresuid(uid, uid, uid) != 0) {
        std::perror("peer: setresuid");
        return false;
    }
    return true;
}

int connectAs(const std::vector<std::string>& arguments) {
    const sockaddr_un address = addressOf(arguments.at(1));
    if (!become(arguments.at(0))) {
        return 1;
    }
    const int socket = newSocket();
    if (::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) {
        std::perror("peer: connect");
        return 1;
    }
    char byte = 0;
    std::puts(::recv(socket, &byte, 1, 0) <= 0 ? "refused" : "answered");
    return 0;
}

int listenAs(const std::vector<std::string>& arguments) {
    const sockaddr_un address = addressOf(arguments.at(1));
    const int socket = newSocket();
    if (!become(arguments.at(0)) || ::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
        ::listen(socket, 1) != 0) {
        std::perror("peer: listen");
        return 1;
    }
    std::fputs(kPeerReady, stdout);
    std::fflush(stdout);
    ::pause();
    return 0;
}

} // namespace kelutv::test
