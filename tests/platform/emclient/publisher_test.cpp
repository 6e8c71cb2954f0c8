#include "Descriptors.h"
#include "EventRecorder.h"
#include "FakeSubscriber.h"
#include "SubscriberProcess.h"
#include "support/Capture.h"
#include "support/Deadline.h"

#include <fcntl.h>
#include <keluem/publisher.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using kelutv::test::countIn;
using kelutv::test::EventRecorder;
using kelutv::test::eventually;
using kelutv::test::FakeSubscriber;
using kelutv::test::LogCapture;
using kelutv::test::SubscriberProcess;

constexpr unsigned int kPublishersModule = 0x80000;

bool hasEntry(const std::string& name) {
    const std::vector<std::string> entries = kelutv::test::eventEntries();
    return std::find(entries.begin(), entries.end(), name) != entries.end();
}

TEST(Publisher, refusesABadPayload) {
    kelutv::test::runtimeDir();
    keluem::Publisher publisher;
    const std::vector<char> large(keluem::kMaxPayload + 1);
    EXPECT_EQ(publisher.publish(kPublishersModule, nullptr, 1), -EINVAL);
    EXPECT_EQ(publisher.publish(kPublishersModule, large.data(), large.size()), -EMSGSIZE);
    EXPECT_EQ(publisher.publish(kPublishersModule, large.data(), large.size() - 1), 0);
}

TEST(Publisher, needsNoSubscriber) {
    kelutv::test::runtimeDir();
    keluem::Publisher publisher;
    EXPECT_EQ(publisher.publish(kPublishersModule, "x", 1), 0);
    EXPECT_EQ(publisher.droppedEvents(), 0U);
}

TEST(Publisher, sendsEverythingUntilToldWhatIsWanted) {
    FakeSubscriber subscriber("1-silent");
    keluem::Publisher publisher;
    publisher.publish(kPublishersModule, nullptr, 0);
    publisher.publish(kPublishersModule + 0x10000, nullptr, 0);
    subscriber.accept();
    EXPECT_EQ(subscriber.nextId(), kPublishersModule);
    EXPECT_EQ(subscriber.nextId(), kPublishersModule + 0x10000);
}

TEST(Publisher, sendsOnlyWhatIsWanted) {
    FakeSubscriber subscriber("1-choosy");
    keluem::Publisher publisher;
    publisher.publish(kPublishersModule, nullptr, 0);
    subscriber.accept({0x10000, kPublishersModule});
    publisher.publish(kPublishersModule + 0x10000, nullptr, 0);
    publisher.publish(kPublishersModule + 1, nullptr, 0);
    subscriber.tell({kPublishersModule + 0x10000});
    publisher.publish(kPublishersModule + 2, nullptr, 0);
    publisher.publish(kPublishersModule + 0x10003, nullptr, 0);
    subscriber.tell({});
    publisher.publish(kPublishersModule + 0x10004, nullptr, 0);
    EXPECT_EQ(subscriber.nextId(), kPublishersModule);
    EXPECT_EQ(subscriber.nextId(), kPublishersModule + 1);
    EXPECT_EQ(subscriber.nextId(), kPublishersModule + 0x10003);
    EXPECT_FALSE(subscriber.hasEvent());
}

TEST(Publisher, removesWhatADeadSubscriberLeft) {
    FakeSubscriber stale("1-stale");
    stale.die();
    keluem::Publisher publisher;
    EXPECT_EQ(publisher.publish(kPublishersModule, nullptr, 0), 0);
    EXPECT_FALSE(hasEntry("1-stale"));
}

TEST(Publisher, noticesTheDeathOfASubscriber) {
    FakeSubscriber mortal("1-mortal");
    EventRecorder recorder(kPublishersModule);
    keluem::Publisher publisher;
    publisher.publish(kPublishersModule, nullptr, 0);
    mortal.accept();
    EXPECT_EQ(mortal.nextId(), kPublishersModule);
    mortal.die();
    EXPECT_EQ(publisher.publish(kPublishersModule + 1, nullptr, 0), 0);
    EXPECT_FALSE(hasEntry("1-mortal"));
    EXPECT_EQ(recorder.takeIds(2), (std::vector<unsigned int>{kPublishersModule, kPublishersModule + 1}));
}

TEST(Publisher, noticesTheDeathOfASubscriberItWasConnectingTo) {
    FakeSubscriber mortal("1-mortal");
    keluem::Publisher publisher;
    publisher.publish(kPublishersModule, nullptr, 0);
    mortal.die();
    EXPECT_EQ(publisher.publish(kPublishersModule, nullptr, 0), 0);
    EXPECT_FALSE(hasEntry("1-mortal"));
}

TEST(Publisher, reconnectsToASubscriberThatDroppedIt) {
    FakeSubscriber fickle("1-fickle");
    keluem::Publisher publisher;
    publisher.publish(kPublishersModule, nullptr, 0);
    fickle.accept();
    { FakeSubscriber other("1-other"); } // a change in the room alone makes no second connection
    publisher.publish(kPublishersModule + 1, nullptr, 0);
    EXPECT_EQ(fickle.idsUntil(kPublishersModule + 1),
              (std::vector<unsigned int>{kPublishersModule, kPublishersModule + 1}));
    fickle.dropConnection();
    publisher.publish(kPublishersModule + 2, nullptr, 0);
    fickle.accept();
    EXPECT_EQ(fickle.nextId(), kPublishersModule + 2);
}

TEST(Publisher, passesOverWhatIsNoSubscriber) {
    EventRecorder recorder(kPublishersModule);
    std::ofstream(kelutv::test::eventRoom() + "/1-file") << "not a socket";
    FakeSubscriber unfinished(".1-unfinished");
    keluem::Publisher publisher;
    EXPECT_EQ(publisher.publish(kPublishersModule, nullptr, 0), 0);
    EXPECT_EQ(recorder.takeIds(1), std::vector<unsigned int>{kPublishersModule});
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
        EXPECT_EQ(publisher.publish(kPublishersModule, nullptr, 0), -EACCES);
        EXPECT_FALSE(log.take().empty());
    }
    EXPECT_EQ(publisher.publish(kPublishersModule, nullptr, 0), 0);
}

TEST(Publisher, refusesADirectoryOpenToOthers) {
    LogCapture log;
    const std::string path = kelutv::test::runtimeDir().path() + "/open";
    ASSERT_EQ(::mkdir(path.c_str(), 0700), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0755), 0);
    {
        const OtherDirectory open(path);
        keluem::Publisher publisher;
        EXPECT_EQ(publisher.publish(kPublishersModule, nullptr, 0), -EACCES);
    }
    ::rmdir(path.c_str());
}

TEST(Publisher, goesOnWhenItsDirectoryWasDeleted) {
    const std::string path = kelutv::test::runtimeDir().path() + "/other";
    const OtherDirectory other(path);
    keluem::Publisher publisher;
    EXPECT_EQ(publisher.publish(kPublishersModule, nullptr, 0), 0);
    std::filesystem::remove_all(path);
    EXPECT_EQ(publisher.publish(kPublishersModule, nullptr, 0), 0);
    EXPECT_TRUE(std::filesystem::is_directory(path + "/events"));
    std::filesystem::remove_all(path);
}

TEST(Publisher, leavesNoDescriptorAndNoThread) {
    FakeSubscriber subscriber("1-kept");
    const std::size_t descriptors = countIn("/proc/self/fd");
    const std::size_t threads = countIn("/proc/self/task");
    {
        keluem::Publisher publisher;
        EXPECT_EQ(publisher.publish(kPublishersModule, nullptr, 0), 0);
        EXPECT_GT(countIn("/proc/self/fd"), descriptors);
    }
    EXPECT_TRUE(eventually([descriptors] { return countIn("/proc/self/fd") <= descriptors; }));
    EXPECT_TRUE(kelutv::test::eventually([threads] { return countIn("/proc/self/task") == threads; }));
}

TEST(Publisher, holdsNothingOfShortSubscribers) {
    EventRecorder recorder(kPublishersModule);
    keluem::Publisher publisher;
    ASSERT_EQ(publisher.publish(kPublishersModule, nullptr, 0), 0);
    ASSERT_EQ(recorder.takeIds(1).size(), 1U);
    const std::size_t descriptors = countIn("/proc/self/fd");
    for (int batch = 0; batch < 5; ++batch) {
        std::vector<std::unique_ptr<SubscriberProcess>> brief(20);
        std::generate(brief.begin(), brief.end(),
                      [] { return std::make_unique<SubscriberProcess>("brief", kPublishersModule); });
        for (const auto& process : brief) {
            ASSERT_EQ(process->process().exitCode(), 0);
        }
    }
    EXPECT_TRUE(eventually([=] { return countIn("/proc/self/fd") == descriptors; })) << countIn("/proc/self/fd");
    EXPECT_EQ(kelutv::test::eventEntries().size(), 1U); // the recorder's
}

TEST(Publisher, holdsNothingOfKilledSubscribers) {
    EventRecorder recorder(kPublishersModule);
    keluem::Publisher publisher;
    ASSERT_EQ(publisher.publish(kPublishersModule, nullptr, 0), 0);
    ASSERT_EQ(recorder.takeIds(1).size(), 1U);
    const std::size_t descriptors = countIn("/proc/self/fd");
    for (int i = 0; i < 30; ++i) {
        SubscriberProcess process("print", kPublishersModule);
        ASSERT_TRUE(process.ready());
        process.process().kill(SIGKILL);
        process.process().wait();
    }
    EXPECT_TRUE(eventually([=] { return countIn("/proc/self/fd") == descriptors; })) << countIn("/proc/self/fd");
    EXPECT_TRUE(eventually([] { return kelutv::test::eventEntries().size() == 1; }));
}

TEST(Publisher, removesWhatWasNeverFinished) {
    FakeSubscriber old(".1-old");
    old.die();
    const timespec longAgo[] = {{1, 0}, {1, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, old.path().c_str(), longAgo, AT_SYMLINK_NOFOLLOW), 0);
    FakeSubscriber young(".1-young");
    young.die();
    keluem::Publisher publisher;
    EXPECT_EQ(publisher.publish(kPublishersModule, nullptr, 0), 0);
    EXPECT_FALSE(hasEntry(".1-old"));
    EXPECT_TRUE(hasEntry(".1-young"));
}

TEST(Publisher, countsWhatSubscribersBeyondItsLimitLose) {
    LogCapture log;
    keluem::Publisher publisher;
    std::vector<std::unique_ptr<FakeSubscriber>> subscribers;
    const std::size_t present = kelutv::test::eventEntries().size();
    for (std::size_t i = present; i <= keluem::kMaxSubscribers; ++i) {
        subscribers.push_back(std::make_unique<FakeSubscriber>("z-" + std::to_string(1000 + i)));
    }
    EXPECT_EQ(publisher.publish(kPublishersModule, nullptr, 0), 0);
    EXPECT_EQ(publisher.droppedEvents(), 1U);
    FakeSubscriber& unserved = *subscribers.back(); // the last by name
    EXPECT_FALSE(unserved.hasConnection());
    subscribers.erase(subscribers.begin());
    EXPECT_EQ(publisher.publish(kPublishersModule + 1, nullptr, 0), 0);
    EXPECT_EQ(publisher.droppedEvents(), 1U);
    unserved.accept();
    EXPECT_EQ(unserved.nextId(), kPublishersModule + 1);
}

} // namespace
