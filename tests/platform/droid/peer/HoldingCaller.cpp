#include "HoldingCaller.h"

#include "PeerProtocol.h"
#include "platform/droid/sockets/RawSocket.h"

#include <unistd.h>

#include <cstdio>

namespace kelutv::test {

int holdCalls(const std::vector<std::string>& arguments) {
    std::vector<kq::UniqueFd> held;
    for (int left = std::stoi(arguments.at(1)); left > 0; --left) {
        held.push_back(rawConnection(arguments.at(0)));
        if (!sendRaw(held.back(), head(0, kHold))) {
            return 1;
        }
    }
    std::fputs(kPeerReady, stdout);
    std::fflush(stdout);
    ::pause();
    return 0;
}

} // namespace kelutv::test
