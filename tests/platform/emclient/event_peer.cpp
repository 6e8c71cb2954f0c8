// Speaks at the sockets of the event room as a user of choice, without the event manager:
//   event_peer publish UID PATH EVENT   connects to PATH and sends an event; says "closed" when it is shut out
//   event_peer crowd UID PATH COUNT     connects COUNT times; says "kept N" when the N that stay have been told
//   something event_peer subscribe UID PATH       listens at PATH; says "event" or "closed", whichever a publisher
//   brings
// UID 0 means: stay who you are.

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr int kPatienceMs = 10000;

int failed(const char* what) {
    std::perror(what);
    return 1;
}

void say(const char* word) {
    std::puts(word);
    std::fflush(stdout);
}

sockaddr_un addressOf(const char* path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path, sizeof(address.sun_path) - 1);
    return address;
}

bool become(uid_t uid) { return uid == 0 || ::setuid(uid) == 0; }

/** The size of the next packet, 0 at the end of the connection. */
ssize_t nextPacket(int socket) {
    pollfd waited{socket, POLLIN, 0};
    char packet[64];
    return ::poll(&waited, 1, kPatienceMs) == 1 ? ::recv(socket, packet, sizeof(packet), 0) : -1;
}

int publish(int socket, const sockaddr_un& address, unsigned int event) {
    if (::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) {
        return failed("connect");
    }
    static_cast<void>(::send(socket, &event, sizeof(event), MSG_NOSIGNAL)); // may be shut out already
    say("sent");
    if (nextPacket(socket) > 0) {
        return failed("recv");
    }
    say("closed");
    return 0;
}

/** A connection, once the listener's queue has space for it. */
int connected(const sockaddr_un& address) {
    const int socket = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    return ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0 ? socket : -1;
}

int crowd(const sockaddr_un& address, unsigned int count) {
    std::vector<int> sockets(count);
    std::generate(sockets.begin(), sockets.end(), [&] { return connected(address); });
    const auto kept = std::count_if(sockets.begin(), sockets.end(), [](int socket) { return nextPacket(socket) > 0; });
    say(("kept " + std::to_string(kept)).c_str());
    ::pause();
    return 0;
}

int subscribe(int socket, const std::string& path) {
    // A subscriber's entry gets its name when its socket listens.
    const std::string unfinished = path.substr(0, path.rfind('/')) + "/.peer";
    const sockaddr_un address = addressOf(unfinished.c_str());
    if (::bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
        ::chmod(address.sun_path, 0777) != 0 || ::listen(socket, 5) != 0 ||
        std::rename(unfinished.c_str(), path.c_str()) != 0) {
        return failed("listen");
    }
    say("ready");
    pollfd waited{socket, POLLIN, 0};
    if (::poll(&waited, 1, kPatienceMs) != 1) {
        return failed("poll");
    }
    const int connection = ::accept4(socket, nullptr, nullptr, SOCK_CLOEXEC);
    say(nextPacket(connection) > 0 ? "event" : "closed");
    ::close(connection);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        return 2;
    }
    const std::string role = argv[1];
    if (!become(static_cast<uid_t>(std::stoul(argv[2])))) {
        return failed("setuid");
    }
    if (role == "crowd" && argc == 5) {
        return crowd(addressOf(argv[3]), static_cast<unsigned int>(std::stoul(argv[4])));
    }
    const int socket = ::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0);
    if (role == "publish" && argc == 5) {
        return publish(socket, addressOf(argv[3]), static_cast<unsigned int>(std::stoul(argv[4], nullptr, 0)));
    }
    return role == "subscribe" ? subscribe(socket, argv[3]) : 2;
}
