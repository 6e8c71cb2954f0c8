#include "simulator/screen/UiKeyboard.h"

#include "simulator/output/Shortage.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

namespace kelutv::simulator {

UiKeyboard::UiKeyboard(int terminal, Taker taker)
    : mTerminal(terminal), mTaker(std::move(taker)), mStop(::eventfd(0, EFD_CLOEXEC)), mThread([this] { read(); }) {}

UiKeyboard::~UiKeyboard() {
    ::eventfd_write(mStop, 1);
    mThread.join();
    ::close(mStop);
}

bool UiKeyboard::canRead(int terminal) {
    const int flags = ::fcntl(terminal, F_GETFL);
    return flags >= 0 && (flags & O_ACCMODE) != O_WRONLY;
}

void UiKeyboard::read() {
    pollfd waits[] = {{mStop, POLLIN, 0}, {mTerminal, POLLIN, 0}};
    bool goesOn = mStop >= 0;
    while (goesOn && ::poll(waits, 2, -1) > 0 && waits[0].revents == 0) {
        withMemory([&] { goesOn = takeKeys(); });
    }
}

bool UiKeyboard::takeKeys() {
    char bytes[64];
    const ssize_t count = ::read(mTerminal, bytes, sizeof(bytes));
    if (count <= 0) {
        return count < 0 && (errno == EAGAIN || errno == EINTR);
    }
    for (const UiKey& key : keysIn(std::string(bytes, static_cast<std::size_t>(count)))) {
        mTaker(key);
    }
    return true;
}

} // namespace kelutv::simulator
