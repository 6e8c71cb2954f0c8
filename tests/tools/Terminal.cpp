#include "tools/Terminal.h"

#include "support/ChildProcess.h"
#include "support/Deadline.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>

namespace kelutv::test {

namespace {

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

} // namespace

Terminal::Terminal(std::vector<std::string> arguments, const std::vector<std::string>& environment) {
    // The settings come by env, so that nothing but exec happens in the child.
    std::vector<std::string> command{"/usr/bin/env", "TERM=xterm"};
    command.insert(command.end(), environment.begin(), environment.end());
    command.insert(command.end(), arguments.begin(), arguments.end());
    const std::vector<char*> pointers = pointersTo(command);
    const winsize size{24, 200, 0, 0};
    mPid = ::forkpty(&mMaster, nullptr, nullptr, &size);
    if (mPid == 0) {
        ::execv(pointers.front(), pointers.data());
        ::_exit(127);
    }
    if (mPid < 0 || ::fcntl(mMaster, F_SETFL, O_NONBLOCK) != 0) {
        throw std::system_error(errno, std::generic_category(), "cannot start at a terminal");
    }
}

Terminal::~Terminal() {
    if (!reap()) {
        ::kill(mPid, SIGKILL);
        eventually([this] { return reap(); });
    }
    ::close(mMaster);
}

void Terminal::type(const std::string& keys) const {
    if (::write(mMaster, keys.data(), keys.size()) != static_cast<ssize_t>(keys.size())) {
        throw std::system_error(errno, std::generic_category(), "cannot type");
    }
}

bool Terminal::waitFor(const std::string& part) {
    return eventually([this, &part] {
        readMore();
        const std::size_t found = mText.find(part, mSeen);
        mSeen = found == std::string::npos ? mSeen : found + part.size();
        return found != std::string::npos;
    });
}

bool Terminal::waitForEditing() const {
    return eventually([this] {
        termios mode{};
        return ::tcgetattr(mMaster, &mode) == 0 && (mode.c_lflag & ICANON) == 0;
    });
}

std::optional<int> Terminal::exitCode() {
    eventually([this] {
        readMore();
        return reap();
    });
    if (!mStatus || !WIFEXITED(*mStatus)) {
        return std::nullopt;
    }
    return WEXITSTATUS(*mStatus);
}

void Terminal::readMore() {
    std::array<char, 4096> buffer{};
    for (ssize_t size = 1; size > 0;) {
        size = ::read(mMaster, buffer.data(), buffer.size());
        mText.append(buffer.data(), static_cast<std::size_t>(size > 0 ? size : 0));
    }
}

bool Terminal::reap() { return reapIfEnded(mPid, mStatus); }

} // namespace kelutv::test
