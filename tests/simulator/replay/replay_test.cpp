// What a client of a simulator that plays a recording is given, and what the simulator says of it.

#include "simulator/Simulator.h"
#include "simulator/VolumeClient.h"
#include "simulator/replay/RecordingFile.h"
#include "support/Deadline.h"
#include "support/RuntimeDir.h"

#include <binder/IServiceManager.h>
#include <keluem/emal.h>

#include <gtest/gtest.h>

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelutv::test {

namespace {

using std::chrono::milliseconds;
using Words = std::vector<std::string>;

const Bytes kGetVolume = requestOf(0x2009, {0});
const Bytes kGetMute = requestOf(0x200B, {0});
constexpr char kVolume[] = "CMD_AUDIO_GETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER)";

constexpr char kDeath[] = "kelutv-simulator: the service dies, as recorded, and comes back\n";

Bytes setVolume(std::int32_t volume) { return requestOf(0x2008, {0, volume}); }

std::string own(const std::string& text) {
    return "kelutv-simulator: [" + std::to_string(::getpid()) + "] " + text + '\n';
}

/** One for all tests, since the thread that delivers events looks for it from the first listener on. */
const RuntimeDir& runtimeDir() {
    static const RuntimeDir directory;
    return directory;
}

class Replayed : public ::testing::Test {
protected:
    Replayed() { runtimeDir(); }

    void play(const Words& options = {}) {
        Words words{"--replay", mFile.path()};
        words.insert(words.end(), options.begin(), options.end());
        mSimulator.emplace(words);
    }

    static Bytes ask(const Bytes& request) { return SimulatorEnvironment::transact(request); }

    /** Ends the simulator. @return its exit code */
    int end() {
        mSimulator->process().kill(SIGTERM);
        return mSimulator->process().exitCode().value_or(-1);
    }

    std::string complaints() { return mSimulator->process().error().text(); }
    std::string output() { return mSimulator->process().output().text(); }
    /** Whether it is there again after its death. */
    bool comesBack() {
        return eventually([this] { return isBack(); });
    }
    bool isBack() {
        const std::string ready = "kelutv-simulator: ready (TVBaseService)\n";
        return output().find(ready, output().find(ready) + 1) != std::string::npos;
    }

    bool says(const std::string& text) { return output().find(text) != std::string::npos; }

    RecordingFile mFile;
    std::optional<Simulator> mSimulator;
};

TEST_F(Replayed, GivesTheBytesThatWereRecorded) {
    // Neither a volume that there is, nor all of a reply, nor a reply that has an end.
    const std::vector<Bytes> replies{replyOf({0, 4711}), {1, 2}, {}, replyOf({-5, 1, 2, 3, 4, 5, 6, 7})};
    for (const Bytes& reply : replies) {
        mFile.call(kGetVolume, reply);
    }
    play();
    for (const Bytes& reply : replies) {
        EXPECT_EQ(ask(kGetVolume), reply);
    }
    EXPECT_EQ(end(), 0);
    EXPECT_EQ(complaints(), "");
    EXPECT_TRUE(says(": 4 of 4 recorded requests asked for, 0 early, 0 that were not recorded; "
                     "0 of 0 events published; no difference\n"))
        << output();
}

TEST_F(Replayed, TellsAtOnceOfAnArgumentThatIsAnother) {
    mFile.call(kGetVolume, replyOf({0, 20})).call(setVolume(35), replyOf({0}));
    play();
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 20}));
    EXPECT_EQ(ask(setVolume(36)), replyOf({0}));
    EXPECT_EQ(complaints(), own("CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=36) was not "
                                "recorded; nearest: CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, "
                                "vol=35) of line 3, which differs in vol"));
    EXPECT_EQ(end(), 1);
    EXPECT_TRUE(says("1 of 2 recorded requests asked for, 0 early, 1 that were not recorded")) << output();
    EXPECT_TRUE(says("       1         0         1       0       0            1  CMD_AUDIO_SETVOLUME\n")) << output();
    EXPECT_TRUE(says("\nnot asked for: CMD_AUDIO_SETVOLUME(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=35) of "
                     "line 3\n"))
        << output();
}

TEST_F(Replayed, NamesTwoRequestsThatHaveChangedPlaces) {
    mFile.call(kGetMute, replyOf({0, 1})).call(setVolume(35), replyOf({0})).call(kGetVolume, replyOf({0, 35}));
    mFile.call(kGetMute, replyOf({0, 0}));
    play();
    EXPECT_EQ(ask(kGetMute), replyOf({0, 1}));
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 35}));
    EXPECT_EQ(ask(setVolume(35)), replyOf({0}));
    EXPECT_EQ(ask(kGetMute), replyOf({0, 0}));
    EXPECT_EQ(complaints(), own(std::string(kVolume) + " of line 4 is asked for before CMD_AUDIO_SETVOLUME(channel=0 "
                                                       "KELU_TV_AUDIO_CHANNEL_SPEAKER, vol=35) of line 3"));
    EXPECT_EQ(end(), 1);
    EXPECT_TRUE(says("4 of 4 recorded requests asked for, 1 early, 0 that were not recorded")) << output();
}

TEST_F(Replayed, FindsRequestsInAnyOrderWhereThatIsAskedFor) {
    mFile.call(kGetVolume, replyOf({0, 20})).call(setVolume(35), replyOf({0})).call(kGetVolume, replyOf({0, 35}));
    play({"--match", "loosely"});
    EXPECT_EQ(ask(setVolume(35)), replyOf({0}));
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 20}));
    for (int times = 0; times < 3; ++times) {
        EXPECT_EQ(ask(kGetVolume), replyOf({0, 35}));
    }
    EXPECT_EQ(end(), 0);
    EXPECT_EQ(complaints(), "");
    EXPECT_TRUE(says("       2         2         0       0       2            0  CMD_AUDIO_GETVOLUME\n")) << output();
}

TEST_F(Replayed, GoesOnBehindARequestThatIsLeftOut) {
    mFile.call(setVolume(1), replyOf({0})).call(setVolume(2), replyOf({0}));
    mFile.call(setVolume(3), replyOf({0})).call(setVolume(4), replyOf({0}));
    play();
    for (const int volume : {1, 3, 4}) {
        EXPECT_EQ(ask(setVolume(volume)), replyOf({0}));
    }
    EXPECT_EQ(end(), 1);
    EXPECT_TRUE(says("3 of 4 recorded requests asked for, 1 early")) << output();
    EXPECT_TRUE(says("vol=2) of line 3\n")) << output();
}

TEST_F(Replayed, LetsTheTelevisionAnswerWhatWasNotRecorded) {
    // The volume was 44 at first, and is what was set since.
    mFile.call(kGetVolume, replyOf({0, 44})).call(kGetMute, replyOf({0, 1})).call(setVolume(35), replyOf({0}));
    play();
    EXPECT_EQ(ask(requestOf(0x2009, {1})), replyOf({0, 20}));
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 44}));
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 44}));
    EXPECT_EQ(ask(kGetMute), replyOf({0, 1}));
    EXPECT_EQ(ask(kGetMute), replyOf({0, 1}));
    EXPECT_EQ(ask(setVolume(35)), replyOf({0}));
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 35}));
    EXPECT_EQ(end(), 1);
    EXPECT_NE(complaints().find(own(std::string(kVolume) + " was not recorded; nearest: " + kVolume +
                                    " of line 2, which has been asked for")),
              std::string::npos)
        << complaints();
}

TEST_F(Replayed, AnswersWhatWasNotRecordedWithAnError) {
    mFile.call(kGetVolume, replyOf({0, 20}));
    play({"--unrecorded", "error"});
    EXPECT_EQ(ask(kGetMute), replyOf({-114}));
    EXPECT_EQ(complaints(), own("CMD_AUDIO_GETMUTE(channel=0 KELU_TV_AUDIO_CHANNEL_SPEAKER) was not recorded; nearest: "
                                "CMD_AUDIO_GETVOLUME"));
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 20}));
    EXPECT_EQ(end(), 1);
}

TEST_F(Replayed, LeavesWhatWasNotRecordedWithoutAnAnswer) {
    mFile.call(kGetMute, replyOf({0, 1}));
    play({"--unrecorded", "silence"});
    VolumeClient client(1);
    ASSERT_TRUE(mSimulator->process().error().waitFor("was not recorded"));
    EXPECT_EQ(ask(kGetMute), replyOf({0, 1}));
    EXPECT_TRUE(client.isRunning());
    EXPECT_EQ(end(), 1);
    EXPECT_EQ(client.answers(), "-1\n");
}

TEST_F(Replayed, KnowsRequestsThatTheCatalogueDoesNotHaveByTheirBytes) {
    const Bytes unknown = requestOf(0x7FFFFF, {1, 2});
    const Bytes tooShort = requestOf(0x2009);
    mFile.call(unknown, replyOf({0, 5})).call(tooShort, replyOf({0, 6})).call({}, replyOf({7}));
    play({"--unrecorded", "error"});
    EXPECT_EQ(ask(unknown), replyOf({0, 5}));
    EXPECT_EQ(ask(tooShort), replyOf({0, 6}));
    EXPECT_EQ(ask({}), replyOf({7}));
    EXPECT_EQ(complaints().find("was not recorded"), std::string::npos);
    EXPECT_EQ(ask(requestOf(0x7FFFFF, {1, 3})), replyOf({-114}));
    EXPECT_EQ(ask({1, 2, 3, 4}), replyOf({-114}));
    EXPECT_EQ(ask(kGetVolume), replyOf({-114}));
    // The platform complains of requests without a token, too.
    for (const std::string& complaint :
         {own("command 0x7FFFFF was not recorded"), own("request of 4 bytes was not recorded"),
          own(std::string(kVolume) + " was not recorded; nearest: CMD_AUDIO_GETVOLUME() of line 3, which differs in "
                                     "channel")}) {
        EXPECT_NE(complaints().find(complaint), std::string::npos) << complaint;
    }
    EXPECT_EQ(end(), 1);
}

TEST_F(Replayed, IsEachRecordedThreadsOwnOrder) {
    mFile.in(7, 7).call(setVolume(1), replyOf({0})).in(7, 8).call(kGetMute, replyOf({0, 0}));
    mFile.in(7, 7).call(setVolume(2), replyOf({0})).in(7, 8).call(kGetMute, replyOf({0, 1}));
    play();
    EXPECT_EQ(ask(kGetMute), replyOf({0, 0}));
    EXPECT_EQ(ask(kGetMute), replyOf({0, 1}));
    EXPECT_EQ(ask(setVolume(1)), replyOf({0}));
    EXPECT_EQ(ask(setVolume(2)), replyOf({0}));
    EXPECT_EQ(end(), 0) << complaints();
}

TEST_F(Replayed, HasAPlaceForEachProcess) {
    for (int i = 1; i <= 2; ++i) {
        mFile.in(1).call(kGetVolume, replyOf({0, i})).in(2).call(kGetVolume, replyOf({0, 10 * i}));
    }
    play({"--exit-at-end"});
    VolumeClient first(2);
    EXPECT_EQ(first.answers(), "1\n2\n");
    VolumeClient second(2);
    EXPECT_EQ(second.answers(), "10\n20\n");
    EXPECT_EQ(mSimulator->process().exitCode(), 0) << complaints();
}

TEST_F(Replayed, FailsAtTheLinkAsRecorded) {
    mFile.failed(kGetVolume, -110).call(kGetVolume, replyOf({0, 9}));
    play();
    EXPECT_THROW(ask(kGetVolume), std::runtime_error);
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 9}));
    EXPECT_EQ(end(), 0) << complaints();
}

TEST_F(Replayed, DiesInACallAsRecordedAndComesBack) {
    mFile.in(1).call(kGetVolume, replyOf({0, 7})).failed(kGetVolume).loss().failed(kGetVolume).failed(kGetMute);
    mFile.in(2).call(kGetVolume, replyOf({0, 8}));
    play();
    VolumeClient first(3);
    EXPECT_EQ(first.answers(), "7\n-1\n-1\n");
    ASSERT_TRUE(comesBack());
    VolumeClient second(1);
    EXPECT_EQ(second.answers(), "8\n");
    EXPECT_EQ(end(), 0);
    EXPECT_EQ(complaints(), "kelutv-simulator: the service dies, as recorded, and comes back\n");
    EXPECT_TRUE(says(": 3 of 3 recorded requests asked for")) << output();
}

TEST_F(Replayed, DiesBehindAnAnswerAsRecorded) {
    mFile.in(1).call(kGetVolume, replyOf({0, 7})).pause(milliseconds(20)).loss().in(2).loss();
    mFile.in(3).call(kGetVolume, replyOf({0, 8}));
    play();
    VolumeClient first(1);
    EXPECT_EQ(first.answers(), "7\n");
    ASSERT_TRUE(comesBack());
    VolumeClient second(1);
    EXPECT_EQ(second.answers(), "8\n");
    EXPECT_EQ(end(), 0) << complaints();
}

TEST_F(Replayed, FailsAgainForThoseWhoFoundNoService) {
    mFile.in(1).call(kGetVolume, replyOf({0, 7})).failed(kGetVolume).loss();
    mFile.in(2).failed(kGetVolume).failed(kGetVolume).in(3).call(kGetVolume, replyOf({0, 8}));
    mFile.in(2).failed(kGetVolume);
    for (const char* const match : {"strictly", "loosely"}) {
        play({"--match", match});
        EXPECT_EQ(VolumeClient(3).answers(), "7\n-1\n-1\n");
        ASSERT_TRUE(comesBack());
        EXPECT_EQ(VolumeClient(2).answers(), "-1\n-1\n");
        EXPECT_EQ(VolumeClient(match == std::string("loosely") ? 2 : 1).answers().substr(0, 2), "8\n");
        EXPECT_EQ(end(), 0);
        EXPECT_EQ(complaints(), kDeath);
        EXPECT_TRUE(says("; no difference\n")) << output();
    }
}

TEST_F(Replayed, FailsWithoutDyingWhereThereWasNoServiceYet) {
    mFile.in(1).failed(kGetVolume).failed(kGetVolume).in(2).call(kGetVolume, replyOf({0, 8}));
    mFile.in(1).failed(kGetVolume);
    play();
    EXPECT_EQ(VolumeClient(3).answers(), "-1\n-1\n-1\n");
    EXPECT_EQ(VolumeClient(1).answers(), "8\n");
    EXPECT_EQ(end(), 0);
    EXPECT_EQ(complaints(), "");
    EXPECT_TRUE(says(": 4 of 4 recorded requests asked for")) << output();
}

TEST_F(Replayed, DoesNotDieAgainForOneWhoLostIt) {
    mFile.in(1).call(kGetVolume, replyOf({0, 7})).loss().in(2).call(kGetVolume, replyOf({0, 8}));
    mFile.in(1).failed(kGetVolume).failed(kGetMute);
    play();
    const auto service = android::defaultServiceManager()->getService(android::String16("TVBaseService"));
    EXPECT_EQ(SimulatorEnvironment::transact(service, kGetVolume), replyOf({0, 7}));
    ASSERT_TRUE(comesBack());
    EXPECT_EQ(VolumeClient(1).answers(), "8\n");
    EXPECT_THROW(SimulatorEnvironment::transact(service, kGetVolume), std::runtime_error);
    EXPECT_EQ(end(), 0) << output();
    EXPECT_EQ(complaints(), kDeath);
}

TEST_F(Replayed, IsAwayAsLongAsRecorded) {
    mFile.in(1).call(kGetVolume, replyOf({0, 7})).failed(kGetVolume).loss();
    mFile.in(2).failed(kGetVolume).pause(milliseconds(2400)).in(3).call(kGetVolume, replyOf({0, 8}));
    play({"--speed", "2"});
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(VolumeClient(2).answers(), "7\n-1\n");
    ASSERT_TRUE(comesBack());
    EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(1200));
    EXPECT_EQ(VolumeClient(1).answers(), "8\n");
    EXPECT_EQ(end(), 0) << output();
}

TEST_F(Replayed, DiesAsLateInACallAsRecorded) {
    mFile.in(1).call(kGetVolume, replyOf({0, 7})).in(2).call(kGetMute, replyOf({0, 1}));
    mFile.in(1).failed(kGetVolume, -32, milliseconds(1600)).in(3).call(kGetVolume, replyOf({0, 8}));
    play({"--speed", "2"});
    const auto begin = std::chrono::steady_clock::now();
    VolumeClient first(2);
    ASSERT_TRUE(mSimulator->process().output().waitFor("CMD_AUDIO_GETVOLUME"));
    EXPECT_EQ(ask(kGetMute), replyOf({0, 1}));
    EXPECT_EQ(first.answers(), "7\n-1\n");
    EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(800));
    ASSERT_TRUE(comesBack());
    EXPECT_EQ(VolumeClient(1).answers(), "8\n");
    EXPECT_EQ(end(), 0) << output();
}

TEST_F(Replayed, EndsWhileItIsAway) {
    mFile.in(1).call(kGetVolume, replyOf({0, 7})).failed(kGetMute).pause(std::chrono::minutes(5)).event(0x60001, {});
    mFile.in(2).call(kGetVolume, replyOf({0, 8}));
    play({"--speed", "1"});
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 7}));
    EXPECT_THROW(ask(kGetMute), std::runtime_error);
    EXPECT_EQ(end(), 1);
    EXPECT_FALSE(isBack());
    EXPECT_TRUE(says(": 2 of 3 recorded requests asked for")) << output();
}

/** The events that this process was given, in text form, with the requests that it made. */
class Log {
public:
    void add(const std::string& text) {
        const std::lock_guard<std::mutex> lock(mMutex);
        mEntries.push_back(text);
    }

    bool waitFor(std::size_t count) {
        return eventually([this, count] { return entries().size() >= count; });
    }

    Words entries() {
        const std::lock_guard<std::mutex> lock(mMutex);
        return mEntries;
    }

private:
    std::mutex mMutex;
    Words mEntries;
};

Log& eventLog() {
    static Log* const log = new Log;
    return *log;
}

void onEvent(unsigned int event, void* /*payload*/, unsigned int length, void* /*unused*/) {
    eventLog().add(std::to_string(event & 0xFFFFU) + '/' + std::to_string(length));
}

TEST_F(Replayed, PublishesEventsAtTheirPlace) {
    constexpr std::uint32_t kVolumeModule = 0x60000;
    mFile.in(1).event(kVolumeModule + 1, {});
    mFile.call(kGetVolume, replyOf({0, 1})).event(kVolumeModule + 2, {1});
    // Both processes are given the same one.
    mFile.in(2).event(kVolumeModule + 2, {1}).in(1).event(kVolumeModule + 2, {1});
    mFile.call(kGetVolume, replyOf({0, 2})).event(kVolumeModule + 3, {1, 2, 3});
    ASSERT_EQ(EMAL_AddListener(kVolumeModule, onEvent), 0);
    play();
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 1}));
    EXPECT_TRUE(eventLog().waitFor(1));
    EXPECT_EQ(eventLog().entries().front(), "1/0");
    EXPECT_TRUE(eventLog().waitFor(3));
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 2}));
    EXPECT_EQ(eventLog().entries(), (Words{"1/0", "2/1", "2/1"}));
    EXPECT_TRUE(eventLog().waitFor(4));
    EXPECT_EQ(eventLog().entries().back(), "3/3");
    EMAL_RemoveListener(kVolumeModule);
    EXPECT_EQ(end(), 0) << complaints();
    EXPECT_TRUE(says("; 4 of 4 events published; no difference\n")) << output();
}

TEST_F(Replayed, SaysThatEventsWereNotPublished) {
    mFile.call(kGetMute, replyOf({0, 1})).event(0x60001, {}).call(kGetVolume, replyOf({0, 1})).event(0x60001, {});
    play();
    EXPECT_EQ(ask(kGetMute), replyOf({0, 1}));
    EXPECT_EQ(end(), 1);
    EXPECT_TRUE(says("; 1 of 2 events published\n")) << output();
    EXPECT_TRUE(says("\nnot published: event 0x60001 volumeChanged of line 5\n")) << output();
}

TEST_F(Replayed, TakesTheTimeThatWasRecordedWhenToldTo) {
    mFile.call(kGetVolume, replyOf({0, 1}), std::chrono::seconds(5));
    play({"--speed", "100"});
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 1}));
    EXPECT_GE(std::chrono::steady_clock::now() - begin, milliseconds(50));
    EXPECT_EQ(end(), 0);
}

TEST_F(Replayed, EndsBehindAnswersThatTakeTheirTime) {
    mFile.in(1).call(kGetVolume, replyOf({0, 7}), milliseconds(600)).in(2).call(kGetMute, replyOf({0, 1}));
    play({"--speed", "1", "--exit-at-end"});
    VolumeClient client(1);
    ASSERT_TRUE(mSimulator->process().output().waitFor("CMD_AUDIO_GETVOLUME"));
    EXPECT_EQ(ask(kGetMute), replyOf({0, 1}));
    EXPECT_EQ(client.answers(), "7\n");
    EXPECT_EQ(mSimulator->process().exitCode(), 0) << complaints();
}

TEST_F(Replayed, DiesBehindTheAnswersOfOthers) {
    mFile.in(1).call(kGetVolume, replyOf({0, 7}), milliseconds(400)).in(2).failed(kGetMute);
    play({"--speed", "1"});
    VolumeClient client(1);
    ASSERT_TRUE(mSimulator->process().output().waitFor("CMD_AUDIO_GETVOLUME"));
    EXPECT_THROW(ask(kGetMute), std::runtime_error);
    EXPECT_EQ(client.answers(), "7\n");
    ASSERT_TRUE(comesBack());
    EXPECT_EQ(end(), 0) << complaints();
}

TEST_F(Replayed, DiesOnceOfOneDeath) {
    mFile.in(1).call(kGetVolume, replyOf({0, 7})).pause(std::chrono::seconds(2)).loss().failed(kGetVolume);
    mFile.in(2).call(kGetVolume, replyOf({0, 8})).pause(milliseconds(300)).event(0x60001, {});
    play({"--speed", "1", "--exit-at-end"});
    VolumeClient first(2);
    EXPECT_EQ(first.answers(), "7\n-1\n");
    ASSERT_TRUE(comesBack());
    VolumeClient second(1);
    EXPECT_EQ(second.answers(), "8\n");
    EXPECT_EQ(mSimulator->process().exitCode(), 0);
    EXPECT_EQ(complaints(), kDeath);
}

TEST_F(Replayed, PublishesEventsThatNoRequestPrecedes) {
    mFile.event(0x60001, {});
    play({"--exit-at-end"});
    EXPECT_EQ(mSimulator->process().exitCode(), 0);
    EXPECT_TRUE(says("; 1 of 1 events published; no difference\n")) << output();
}

TEST_F(Replayed, PublishesEventsOfAPartWithoutRequests) {
    mFile.call(kGetVolume, replyOf({0, 1})).add(mFile.lines().front()).event(0x60001, {});
    play({"--exit-at-end"});
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 1}));
    EXPECT_EQ(mSimulator->process().exitCode(), 0);
    EXPECT_TRUE(says("; 1 of 1 events published; no difference\n")) << output();
}

TEST_F(Replayed, DiesBehindTheFirstAnswerWhereItDiedBefore) {
    mFile.in(1).loss().in(2).call(kGetVolume, replyOf({0, 1}));
    play({"--exit-at-end"});
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 1}));
    EXPECT_EQ(mSimulator->process().exitCode(), 0);
    EXPECT_EQ(complaints(), kDeath);
}

/** The process that asks first is the second one of the recording, which shows only when it goes on. */
TEST_F(Replayed, PublishesTheEventsOfTheProcessThatItIs) {
    mFile.in(1).call(kGetVolume, replyOf({0, 1})).event(0x60001, {1}).call(kGetVolume, replyOf({0, 2}));
    mFile.in(2).call(kGetVolume, replyOf({0, 3})).event(0x60001, {2}).call(setVolume(22), replyOf({0}));
    play({"--exit-at-end"});
    ask(kGetVolume);
    EXPECT_EQ(ask(setVolume(22)), replyOf({0}));
    EXPECT_EQ(VolumeClient(2).answers(), "1\n2\n");
    EXPECT_EQ(mSimulator->process().exitCode(), 0) << complaints();
    EXPECT_TRUE(says("; 2 of 2 events published; no difference\n")) << output();
}

TEST_F(Replayed, DoesNotDoWhatWasRefused) {
    mFile.call(setVolume(77), replyOf({-107}));
    play();
    EXPECT_EQ(ask(setVolume(77)), replyOf({-107}));
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 20}));
    EXPECT_EQ(end(), 1);
}

TEST_F(Replayed, GoesOnWithTheStateThatWasKept) {
    mFile.in(1).call(kGetVolume, replyOf({0, 44})).call(setVolume(35), replyOf({0})).failed(kGetMute);
    play({"--state", runtimeDir().path() + "/state.json"});
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 44}));
    EXPECT_EQ(ask(setVolume(35)), replyOf({0}));
    EXPECT_THROW(ask(kGetMute), std::runtime_error);
    ASSERT_TRUE(comesBack());
    EXPECT_EQ(VolumeClient(1).answers(), "35\n");
    EXPECT_EQ(end(), 1);
}

TEST_F(Replayed, ComparesRequestsBehindATokenOfAnyForm) {
    std::get<recording::Header>(mFile.lines().front().content).token =
        Wire::token(30, u"android.ITVBaseService").bytes();
    mFile.call(Wire::token(30, u"android.ITVBaseService").i32(0x2009).i32(0).bytes(), replyOf({0, 3}));
    play();
    EXPECT_EQ(ask(kGetVolume), replyOf({0, 3}));
    EXPECT_EQ(end(), 0);
    EXPECT_NE(complaints().find("its interface token has another form than here"), std::string::npos) << complaints();
}

} // namespace

} // namespace kelutv::test
