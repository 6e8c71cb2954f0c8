#include "socket/Descriptors.h"
#include "socket/RuntimeDirectory.h"
#include "socket/SeqPacket.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace kelutv::test {
namespace {

constexpr unsigned kChildsSeconds = 20;

bool isOpen(int fd) { return ::fcntl(fd, F_GETFD) != -1; }

kq::UniqueFd newEvent() {
    return kq::openDescriptor([] { return ::eventfd(0, EFD_CLOEXEC); });
}

/** What `check` gives in a forked child; -1 when it did not end by itself. */
template <typename Check> int inChild(const Check& check) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(kChildsSeconds);
        ::_exit(check());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

class DescriptorsTest : public ::testing::Test {
protected:
    std::string path() const { return mDirectory.path() + "/socket"; }

private:
    RuntimeDir mDirectory;
};

TEST_F(DescriptorsTest, areNeverThoseOfTheStandardStreams) {
    const int input = ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 100);
    ::close(STDIN_FILENO);
    {
        const kq::UniqueFd event = newEvent();
        const kq::UniqueFd listener = kq::listenAt(path());
        const kq::UniqueFd client = kq::connectTo(path());
        kq::Peer peer{};
        const kq::UniqueFd server = kq::acceptFrom(listener.get(), &peer);
        const auto room = kq::RuntimeDirectory::open("room");
        const kq::UniqueFd lock = room->lock();
        const kq::UniqueFd watch = room->watch();
        for (const int fd : {event.get(), listener.get(), client.get(), server.get(), lock.get(), watch.get()}) {
            EXPECT_GT(fd, STDERR_FILENO);
            EXPECT_NE(::fcntl(fd, F_GETFD) & FD_CLOEXEC, 0);
        }
        EXPECT_FALSE(isOpen(STDIN_FILENO));
    }
    if (input >= 0) {
        ::dup2(input, STDIN_FILENO);
        ::close(input);
    }
}

TEST_F(DescriptorsTest, whyNoneCouldBeOpenedIsTold) {
    EXPECT_FALSE(kq::openDescriptor([] { return ::open("", O_RDONLY | O_CLOEXEC); }));
    EXPECT_EQ(errno, ENOENT);
}

TEST_F(DescriptorsTest, areClosedInAForkedChildWhichKeepsItsOwn) {
    const kq::UniqueFd listener = kq::listenAt(path());
    const kq::UniqueFd client = kq::connectTo(path());
    kq::Peer peer{};
    const kq::UniqueFd server = kq::acceptFrom(listener.get(), &peer);
    const kq::UniqueFd lock = kq::RuntimeDirectory::open("room")->lock();
    int own[2];
    ASSERT_EQ(::pipe2(own, O_CLOEXEC), 0);
    EXPECT_EQ(inChild([&] {
                  for (const int fd : {listener.get(), client.get(), server.get(), lock.get()}) {
                      if (isOpen(fd)) {
                          return 1;
                      }
                  }
                  return isOpen(own[0]) && isOpen(own[1]) && kq::inForkedChild() ? 0 : 2;
              }),
              0);
    EXPECT_TRUE(isOpen(listener.get()));
    EXPECT_FALSE(kq::inForkedChild());
    ::close(own[0]);
    ::close(own[1]);
}

TEST_F(DescriptorsTest, numberThatTheChildHasTakenOverIsNotClosedInIt) {
    std::optional<kq::UniqueFd> event(newEvent());
    const int number = event->get();
    EXPECT_EQ(inChild([&] {
                  const bool taken = ::dup2(STDERR_FILENO, number) == number;
                  event.reset();
                  return taken && isOpen(number) ? 0 : 1;
              }),
              0);
}

TEST_F(DescriptorsTest, cannotBeOpenedInAForkedChild) {
    const kq::UniqueFd event = newEvent();
    EXPECT_EQ(inChild([] { return !newEvent() && errno == EPERM ? 0 : 1; }), 0);
}

TEST_F(DescriptorsTest, lockOfADeadProcessIsFreeWhateverItForked) {
    const auto room = kq::RuntimeDirectory::open("room");
    int end[2];
    ASSERT_EQ(::pipe2(end, O_CLOEXEC), 0);
    pid_t child = -1;
    {
        const kq::UniqueFd lock = room->lock();
        child = ::fork();
        if (child == 0) {
            ::alarm(kChildsSeconds);
            ::close(end[1]);
            char byte = 0;
            static_cast<void>(::read(end[0], &byte, 1));
            ::_exit(0);
        }
    }
    EXPECT_TRUE(room->lock());
    ::close(end[1]);
    ::close(end[0]);
    ::waitpid(child, nullptr, 0);
}

/** The sockets that this process has open; async-signal-safe. */
int openSockets() {
    int sockets = 0;
    for (int fd = 0; fd < 256; ++fd) {
        struct stat status {};
        sockets += ::fstat(fd, &status) == 0 && S_ISSOCK(status.st_mode) ? 1 : 0;
    }
    return sockets;
}

TEST_F(DescriptorsTest, noneSlipsIntoAChildThatIsForkedMeanwhile) {
    const int before = openSockets();
    const kq::UniqueFd listener = kq::listenAt(path());
    std::atomic<bool> stop{false};
    std::vector<std::thread> openers;
    for (int i = 0; i < 3; ++i) {
        openers.emplace_back([&] {
            while (!stop) {
                const kq::UniqueFd client = kq::connectTo(path());
                kq::Peer peer{};
                const kq::UniqueFd server = kq::acceptFrom(listener.get(), &peer);
            }
        });
    }
    int worst = 0;
    for (int round = 0; round < 200 && worst == 0; ++round) {
        worst = inChild([before] { return openSockets() > before ? 1 : 0; });
    }
    stop = true;
    for (std::thread& opener : openers) {
        opener.join();
    }
    EXPECT_EQ(worst, 0);
}

} // namespace
} // namespace kelutv::test
