#include "socket/SeqPacket.h"
#include "support/Deadline.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <string>

namespace kelutv::test {
namespace {

class SeqPacketTest : public ::testing::Test {
protected:
    void connectBoth() {
        mListener = kq::listenAt(path());
        client = kq::connectTo(path());
        server = kq::acceptFrom(mListener.get(), &caller);
        ASSERT_TRUE(mListener);
        ASSERT_TRUE(client);
        ASSERT_TRUE(server);
    }

    std::string path() const { return mDirectory.path() + "/socket"; }

    int listener() const { return mListener.get(); }

    kq::UniqueFd client;
    kq::UniqueFd server;
    kq::Peer caller{};

private:
    RuntimeDir mDirectory;
    kq::UniqueFd mListener;
};

TEST_F(SeqPacketTest, bothEndsKnowEachOther) {
    connectBoth();
    EXPECT_EQ(caller.pid, ::getpid());
    EXPECT_EQ(caller.uid, ::geteuid());
    EXPECT_EQ(kq::peerOf(client.get()).pid, ::getpid());
    EXPECT_EQ(kq::peerOf(-1).uid, static_cast<uid_t>(-1));
}

TEST_F(SeqPacketTest, packetsKeepTheirBounds) {
    connectBoth();
    char one[] = "one";
    char two[] = "twofold";
    const iovec pieces[] = {{one, 3}, {two, 7}};
    ASSERT_TRUE(kq::sendPacket(client.get(), pieces, 2));
    ASSERT_TRUE(kq::sendPacket(client.get(), pieces, 1));
    char buffer[32];
    EXPECT_EQ(kq::receivePacket(server.get(), buffer, sizeof(buffer)), 10u);
    EXPECT_EQ(std::string(buffer, 10), "onetwofold");
    EXPECT_EQ(kq::receivePacket(server.get(), buffer, sizeof(buffer)), 3u);
}

TEST_F(SeqPacketTest, packetThatDoesNotFitIsToldByItsLength) {
    connectBoth();
    char text[] = "too long";
    const iovec piece{text, 8};
    ASSERT_TRUE(kq::sendPacket(client.get(), &piece, 1));
    char buffer[5] = "....";
    EXPECT_EQ(kq::receivePacket(server.get(), buffer, 3), 8u);
    EXPECT_STREQ(buffer, "too.");
}

TEST_F(SeqPacketTest, endOfThePeerIsToldBothWays) {
    connectBoth();
    server = kq::UniqueFd();
    char byte = 'x';
    EXPECT_EQ(kq::receivePacket(client.get(), &byte, 1), 0u);
    const iovec piece{&byte, 1};
    EXPECT_FALSE(kq::sendPacket(client.get(), &piece, 1));
}

TEST_F(SeqPacketTest, nothingSurvivesExec) {
    connectBoth();
    const kq::UniqueFd listener = kq::listenAt(path() + "2");
    for (const int fd : {client.get(), server.get(), listener.get()}) {
        EXPECT_NE(::fcntl(fd, F_GETFD) & FD_CLOEXEC, 0);
    }
}

TEST_F(SeqPacketTest, takenEntryIsTold) {
    kq::UniqueFd first = kq::listenAt(path());
    EXPECT_FALSE(kq::isStale(path()));
    EXPECT_FALSE(kq::listenAt(path()));
    EXPECT_EQ(errno, EADDRINUSE);
    first = kq::UniqueFd();
    EXPECT_TRUE(kq::isStale(path()));
    EXPECT_FALSE(kq::listenAt(path()));
    EXPECT_EQ(errno, EADDRINUSE);
    EXPECT_FALSE(kq::connectTo(path()));
    EXPECT_EQ(errno, ECONNREFUSED);
}

TEST_F(SeqPacketTest, missingEntryIsTold) {
    EXPECT_FALSE(kq::isStale(path()));
    EXPECT_FALSE(kq::connectTo(path()));
    EXPECT_EQ(errno, ENOENT);
}

/** Listens with a queue for one connection, which waits there. */
class FullListener {
public:
    explicit FullListener(const std::string& path) : mListener(::socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof(address.sun_path) - 1);
        ::bind(mListener.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address));
        ::listen(mListener.get(), 0);
        mWaiting = kq::connectTo(path);
    }

private:
    kq::UniqueFd mListener;
    kq::UniqueFd mWaiting;
};

TEST_F(SeqPacketTest, fullQueueIsNoEnd) {
    const FullListener full(path());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(kq::connectTo(path()));
    EXPECT_EQ(errno, EAGAIN);
    EXPECT_FALSE(kq::isStale(path()));
    EXPECT_LT(std::chrono::steady_clock::now() - start, kPatience);
}

TEST_F(SeqPacketTest, connectionsWaitAsAskedFor) {
    connectBoth();
    const kq::UniqueFd quick = kq::connectTo(path(), kq::Waiting::Never);
    const kq::UniqueFd answered = kq::acceptFrom(listener(), &caller, kq::Waiting::Never);
    for (const int fd : {quick.get(), answered.get(), listener()}) {
        EXPECT_NE(::fcntl(fd, F_GETFL) & O_NONBLOCK, 0);
    }
    for (const int fd : {client.get(), server.get()}) {
        EXPECT_EQ(::fcntl(fd, F_GETFL) & O_NONBLOCK, 0);
    }
    EXPECT_FALSE(kq::acceptFrom(listener(), &caller));
    EXPECT_EQ(errno, EAGAIN);
}

TEST_F(SeqPacketTest, pathMustFitIntoAnAddress) {
    const std::string longest = path() + std::string(107 - path().size(), 'x');
    const kq::UniqueFd listener = kq::listenAt(longest);
    EXPECT_TRUE(listener);
    EXPECT_TRUE(kq::connectTo(longest));
    EXPECT_FALSE(kq::listenAt(longest + 'x'));
    EXPECT_EQ(errno, ENAMETOOLONG);
    EXPECT_FALSE(kq::connectTo(longest + 'x'));
    EXPECT_EQ(errno, ENAMETOOLONG);
}

TEST(UniqueFdTest, closesWhatItOwns) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    {
        kq::UniqueFd owner(ends[0]);
        kq::UniqueFd other(std::move(owner));
        EXPECT_FALSE(owner); // NOLINT(bugprone-use-after-move): empty is what a moved-from owner promises to be.
        EXPECT_EQ(other.get(), ends[0]);
        other = kq::UniqueFd(ends[1]);
        EXPECT_EQ(::fcntl(ends[0], F_GETFD), -1);
        EXPECT_NE(::fcntl(ends[1], F_GETFD), -1);
    }
    EXPECT_EQ(::fcntl(ends[1], F_GETFD), -1);
}

} // namespace
} // namespace kelutv::test
