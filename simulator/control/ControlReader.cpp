#include "simulator/control/ControlReader.h"

#include "simulator/control/ControlMessage.h"
#include "simulator/control/Waiting.h"
#include "simulator/output/Complaints.h"
#include "simulator/output/Shortage.h"
#include "wire/text/Shown.h"

#include <fcntl.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace kelutv::simulator {

namespace {

bool isPipe(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISFIFO(status.st_mode);
}

int openChannel(const std::string& path) {
    if (path == "-") {
        return ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0);
    }
    // A named pipe that is open for writing, too, does not end when a writer closes it.
    return ::open(path.c_str(), (isPipe(path) ? O_RDWR : O_RDONLY) | O_CLOEXEC);
}

} // namespace

ControlReader::ControlReader(const std::string& path, Receiver receiver)
    : mReceiver(std::move(receiver)), mChannel(openChannel(path)) {
    if (mChannel < 0) {
        const int error = errno;
        throw std::runtime_error("cannot open " + wire::shown(path, wire::kMostOfPath) + ": " + std::strerror(error));
    }
    mStop = ::eventfd(0, EFD_CLOEXEC);
    mThread = std::thread([this] { read(); });
}

ControlReader::~ControlReader() {
    mIsEnding = true;
    ::eventfd_write(mStop, 1);
    mThread.join();
    ::close(mStop);
    ::close(mChannel);
}

void ControlReader::read() {
    pollfd waits[] = {{mStop, POLLIN, 0}, {mChannel, POLLIN, 0}};
    char bytes[4096];
    while (!mIsEnding) {
        if (!waitForAny(waits, 2, -1)) {
            continue;
        }
        if (waits[0].revents != 0) {
            return;
        }
        const ssize_t count = ::read(mChannel, bytes, sizeof(bytes));
        if (count <= 0) {
            handOn("\n", 1);
            return;
        }
        handOn(bytes, static_cast<std::size_t>(count));
    }
}

void ControlReader::handOn(const char* bytes, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        if (bytes[i] == '\n') {
            withMemory([this] { endLine(); });
            mLine.clear();
        } else if (mLine.size() <= kLongestLine) {
            withMemory([&] { mLine += bytes[i]; });
        }
    }
}

void ControlReader::endLine() {
    if (mLine.size() > kLongestLine) {
        complain("a control line has more than " + std::to_string(kLongestLine) + " characters");
    } else {
        mReceiver(mLine);
    }
}

} // namespace kelutv::simulator
