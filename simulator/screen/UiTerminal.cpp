#include "simulator/screen/UiTerminal.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace kelutv::simulator {

namespace {

constexpr UiSize kUsualSize{24, 80};
constexpr int kPatienceMs = 500;
/** So much a terminal takes that has room at all. */
constexpr std::size_t kPiece = 256;
constexpr char kEnter[] = "\x1b[?1049h\x1b[?25l";
constexpr char kLeave[] = "\x1b[?25h\x1b[?1049l";
constexpr char kHome[] = "\x1b[H";
constexpr char kClearRow[] = "\x1b[K";
constexpr char kClearBelow[] = "\x1b[J";

} // namespace

void UiTerminal::enter() {
    mEntered = true;
    takeKeyboard();
    write(kEnter);
}

void UiTerminal::leave() {
    if (mEntered) {
        mEntered = false;
        write(kLeave);
        giveKeyboardBack();
    }
}

UiSize UiTerminal::size() const {
    winsize size{};
    if (::ioctl(mDescriptor, TIOCGWINSZ, &size) != 0 || size.ws_row == 0 || size.ws_col == 0) {
        return kUsualSize;
    }
    return {size.ws_row, size.ws_col};
}

void UiTerminal::draw(const std::vector<std::string>& rows) const {
    if (!mEntered) {
        return;
    }
    std::string text = kHome;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        text += (i == 0 ? "" : "\r\n") + rows[i] + kClearRow;
    }
    write(text + kClearBelow);
}

/** Gives up when the terminal takes nothing, as one that is stopped by Ctrl-S: the next picture is a whole one. */
void UiTerminal::write(const std::string& text) const {
    std::size_t written = 0;
    while (written < text.size()) {
        pollfd room{mDescriptor, POLLOUT, 0};
        if (::poll(&room, 1, kPatienceMs) == 0) {
            return;
        }
        const ssize_t count = ::write(mDescriptor, text.data() + written, std::min(kPiece, text.size() - written));
        if (count < 0 && errno != EINTR) {
            return;
        }
        written += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
}

void UiTerminal::takeKeyboard() {
    termios settings{};
    if (::tcgetattr(mDescriptor, &settings) != 0) {
        return;
    }
    if (!mSettings) {
        mSettings = settings;
    }
    settings.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON);
    settings.c_cc[VMIN] = 1;
    settings.c_cc[VTIME] = 0;
    ::tcsetattr(mDescriptor, TCSANOW, &settings);
}

void UiTerminal::giveKeyboardBack() {
    if (mSettings) {
        ::tcsetattr(mDescriptor, TCSANOW, &*mSettings);
        mSettings.reset();
    }
}

} // namespace kelutv::simulator
