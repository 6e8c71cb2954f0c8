// What a first call is held against: a program of the C++ library alone that connects to a socket and exchanges the
// same bytes there: `kelutv-bare-first-answer TIME`, with the socket's path in KELUTV_BENCH_SOCKET.

#include "StartTimes.h"

#include "bench/support/WireSizes.h"

#include <sys/socket.h>
#include <sys/un.h>

#include <array>
#include <cstdlib>
#include <cstring>

namespace {

using namespace kelutv::bench;

bool exchange(const char* path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path, sizeof(address.sun_path) - 1);
    std::array<char, kMessageHead + kSetVolumeRequest> packet{};
    const int socket = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    return ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0 &&
           ::send(socket, packet.data(), packet.size(), MSG_NOSIGNAL) > 0 &&
           ::recv(socket, packet.data(), packet.size(), 0) > 0;
}

} // namespace

int main(int count, char** arguments) {
    const StartTimes times(count > 1 ? arguments[1] : nullptr);
    const char* const path = std::getenv("KELUTV_BENCH_SOCKET");
    if (path == nullptr || !exchange(path)) {
        return 1;
    }
    times.print();
}
