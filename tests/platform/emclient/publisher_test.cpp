#include "EventRecorder.h"
#include "FakeSubscriber.h"
#include "support/Capture.h"
#include "support/Deadline.h"

#include <keluem/publisher.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vector>

#include <gtest/gtest.h>

namespace {

using kelutv::test::EventRecorder;
using kelutv::test::FakeSubscriber;
using kelutv::test::LogCapture;

constexpr unsigned int kModule = 0x80000;

bool hasEntry(const std::string& name) {
    const std::vector<std::string> entries = kelutv::test::eventEntries();
    return std::find(entries.begin(), entries.end(), name) != entries.end();
}

std::size_t countIn(const char* directory) {
    const std::filesystem::directory_iterator entries(directory);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

TEST(Publisher, refusesABadPayload) {
    kelutv::test::runtimeDir();
    keluem::Publisher publisher;
    const std::vector<char> large(keluem::kMaxPayload + 1);
    EXPECT_EQ(publisher.publish(kModule, nullptr, 1), -EINVAL);
    EXPECT_EQ(publisher.publish(kModule, large.data(), large.size()), -EMSGSIZE);
    EXPECT_EQ(publisher.publish(kModule, large.data(), large.size() - 1), 0);
}

TEST(Publisher, needsNoSubscriber) {
    kelutv::test::runtimeDir();
    keluem::Publisher publisher;
    EXPECT_EQ(publisher.publish(kModule, "x", 1), 0);
    EXPECT_EQ(publisher.droppedEvents(), 0U);
}

TEST(Publisher, sendsEverythingUntilToldWhatIsWanted) {
    FakeSubscriber subscriber("1-silent");
    keluem::Publisher publisher;
    publisher.publish(kModule, nullptr, 0);
    publisher.publish(kModule + 0x10000, nullptr, 0);
    subscriber.accept();
    EXPECT_EQ(subscriber.nextId(), kModule);
    EXPECT_EQ(subscriber.nextId(), kModule + 0x10000);
}

TEST(Publisher, sendsOnlyWhatIsWanted) {
    FakeSubscriber subscriber("1-choosy");
    keluem::Publisher publisher;
    publisher.publish(kModule, nullptr, 0);
    subscriber.accept({0x10000, kModule});
    publisher.publish(kModule + 0x10000, nullptr, 0);
    publisher.publish(kModule + 1, nullptr, 0);
    subscriber.tell({kModule + 0x10000});
    publisher.publish(kModule + 2, nullptr, 0);
    publisher.publish(kModule + 0x10003, nullptr, 0);
    subscriber.tell({});
    publisher.publish(kModule + 0x10004, nullptr, 0);
    EXPECT_EQ(subscriber.nextId(), kModule);
    EXPECT_EQ(subscriber.nextId(), kModule + 1);
    EXPECT_EQ(subscriber.nextId(), kModule + 0x10003);
    EXPECT_FALSE(subscriber.hasEvent());
}

TEST(Publisher, removesWhatADeadSubscriberLeft) {
    FakeSubscriber stale("1-stale");
    stale.die();
    keluem::Publisher publisher;
    EXPECT_EQ(publisher.publish(kModule, nullptr, 0), 0);
    EXPECT_FALSE(hasEntry("1-stale"));
}

TEST(Publisher, noticesTheDeathOfASubscriber) {
    FakeSubscriber mortal("1-mortal");
    EventRecorder recorder(kModule);
    keluem::Publisher publisher;
    publisher.publish(kModule, nullptr, 0);
    mortal.accept();
    EXPECT_EQ(mortal.nextId(), kModule);
    mortal.die();
    EXPECT_EQ(publisher.publish(kModule + 1, nullptr, 0), 0);
    EXPECT_FALSE(hasEntry("1-mortal"));
    EXPECT_EQ(recorder.takeIds(2), (std::vector<unsigned int>{kModule, kModule + 1}));
}

TEST(Publisher, noticesTheDeathOfASubscriberItWasConnectingTo) {
    FakeSubscriber mortal("1-mortal");
    keluem::Publisher publisher;
    publisher.publish(kModule, nullptr, 0);
    mortal.die();
    EXPECT_EQ(publisher.publish(kModule, nullptr, 0), 0);
    EXPECT_FALSE(hasEntry("1-mortal"));
}

TEST(Publisher, reconnectsToASubscriberThatDroppedIt) {
    FakeSubscriber fickle("1-fickle");
    keluem::Publisher publisher;
    publisher.publish(kModule, nullptr, 0);
    fickle.accept();
    { FakeSubscriber other("1-other"); } // a change in the room alone makes no second connection
    publisher.publish(kModule + 1, nullptr, 0);
    EXPECT_EQ(fickle.idsUntil(kModule + 1), (std::vector<unsigned int>{kModule, kModule + 1}));
    fickle.dropConnection();
    publisher.publish(kModule + 2, nullptr, 0);
    fickle.accept();
    EXPECT_EQ(fickle.nextId(), kModule + 2);
}

TEST(Publisher, passesOverWhatIsNoSubscriber) {
    EventRecorder recorder(kModule);
    std::ofstream(kelutv::test::eventRoom() + "/1-file") << "not a socket";
    FakeSubscriber unfinished(".1-unfinished");
    keluem::Publisher publisher;
    EXPECT_EQ(publisher.publish(kModule, nullptr, 0), 0);
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kModule});
    EXPECT_FALSE(unfinished.hasConnection());
    std::filesystem::remove(kelutv::test::eventRoom() + "/1-file");
}

/** Another runtime directory for as long as the object lives. */
class OtherDirectory {
public:
    explicit OtherDirectory(const std::string& path) {
        kelutv::test::runtimeDir();
        mBefore = std::getenv("KQDROID_RUNTIME_DIR");
        ::setenv("KQDROID_RUNTIME_DIR", path.c_str(), 1);
    }
    ~OtherDirectory() { ::setenv("KQDROID_RUNTIME_DIR", mBefore.c_str(), 1); }
    OtherDirectory(const OtherDirectory&) = delete;
    OtherDirectory& operator=(const OtherDirectory&) = delete;

private:
    std::string mBefore;
};

TEST(Publisher, saysWhenTheDirectoryCannotBeUsed) {
    LogCapture log;
    keluem::Publisher publisher;
    {
        const OtherDirectory absent(kelutv::test::runtimeDir().path() + "/nowhere/at/all");
        EXPECT_EQ(publisher.publish(kModule, nullptr, 0), -EACCES);
        EXPECT_FALSE(log.take().empty());
    }
    EXPECT_EQ(publisher.publish(kModule, nullptr, 0), 0);
}

TEST(Publisher, refusesADirectoryOpenToOthers) {
    LogCapture log;
    const std::string path = kelutv::test::runtimeDir().path() + "/open";
    ASSERT_EQ(::mkdir(path.c_str(), 0700), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0755), 0);
    {
        const OtherDirectory open(path);
        keluem::Publisher publisher;
        EXPECT_EQ(publisher.publish(kModule, nullptr, 0), -EACCES);
    }
    ::rmdir(path.c_str());
}

TEST(Publisher, goesOnWhenItsDirectoryWasDeleted) {
    const std::string path = kelutv::test::runtimeDir().path() + "/other";
    const OtherDirectory other(path);
    keluem::Publisher publisher;
    EXPECT_EQ(publisher.publish(kModule, nullptr, 0), 0);
    std::filesystem::remove_all(path);
    EXPECT_EQ(publisher.publish(kModule, nullptr, 0), 0);
    EXPECT_TRUE(std::filesystem::is_directory(path + "/events"));
    std::filesystem::remove_all(path);
}

TEST(Publisher, leavesNoDescriptorAndNoThread) {
    FakeSubscriber subscriber("1-kept");
    const std::size_t descriptors = countIn("/proc/self/fd");
    const std::size_t threads = countIn("/proc/self/task");
    {
        keluem::Publisher publisher;
        EXPECT_EQ(publisher.publish(kModule, nullptr, 0), 0);
        EXPECT_GT(countIn("/proc/self/fd"), descriptors);
    }
    EXPECT_EQ(countIn("/proc/self/fd"), descriptors);
    EXPECT_TRUE(kelutv::test::eventually([threads] { return countIn("/proc/self/task") == threads; }));
}

} // namespace
