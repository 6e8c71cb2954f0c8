#include "service/Dispatcher.h"

#include "service/Requests.h"

#include <kelutv/audio_types.h>
#include <kelutv/commands.h>
#include <kelutv/events.h>

#include <gtest/gtest.h>

#include <pthread.h>

#include <atomic>
#include <future>
#include <memory>
#include <new>
#include <stdexcept>
#include <thread>

namespace kelutv::service {

namespace {

using test::requestOf;
using test::Wire;

constexpr std::int32_t kUnknownCommand = -102;
constexpr std::int32_t kMissingData = -103;
constexpr std::int32_t kNotProvided = -112;
constexpr std::int32_t kFailed = -113;

class DispatcherTest : public ::testing::Test {
protected:
    wire::Reply ask(const test::Bytes& bytes) { return mDispatcher->answer(read(bytes)).value(); }

    /** Lets a handler of the sound carry out one request, and gives what is answered. */
    wire::Reply askAudio(const test::Bytes& bytes, const Handler& handler) {
        mDispatcher->handle("audio", handler);
        return ask(bytes);
    }

    const std::shared_ptr<KeptEvents> mEvents = std::make_shared<KeptEvents>();
    std::vector<std::string> mComplaints;
    const android::sp<Dispatcher> mDispatcher =
        new Dispatcher(mEvents, [this](const std::string& text) { mComplaints.push_back(text); });
};

TEST_F(DispatcherTest, refusesWhatNothingHandles) {
    EXPECT_EQ(ask(requestOf(CMD_AUDIO_GETVOLUME, {0})).result, kNotProvided);
    EXPECT_EQ(ask(requestOf(CMD_PICTURE_GETBRIGHTNESS)).result, kNotProvided);
    EXPECT_TRUE(mComplaints.empty());
}

TEST_F(DispatcherTest, showsHandlersOnlyWhatCanBeRead) {
    const auto mustNotRun = [](const Request&, Events&) -> Reply { throw std::logic_error("called"); };
    EXPECT_EQ(askAudio(requestOf(0x7FFF0000), mustNotRun).result, kUnknownCommand);
    EXPECT_EQ(askAudio(requestOf(CMD_AUDIO_SETVOLUME, {0}), mustNotRun).result, kMissingData);
    EXPECT_TRUE(mComplaints.empty());
}

TEST_F(DispatcherTest, handsWhatARequestSaysOverByName) {
    const auto reply = askAudio(requestOf(CMD_AUDIO_SETMUTE, {1, 1, 2}), [](const Request& request, Events&) {
        EXPECT_EQ(request.command(), CMD_AUDIO_SETMUTE);
        EXPECT_STREQ(request.name(), "CMD_AUDIO_SETMUTE");
        EXPECT_EQ(request.integer("channel"), 1);
        EXPECT_TRUE(request.flag("onoff"));
        EXPECT_EQ(request.integer("type"), 2);
        EXPECT_EQ(request.state(), "audio.mute");
        EXPECT_EQ(request.access(), Request::Access::Set);
        EXPECT_EQ(request.keys(), Values{1});
        EXPECT_EQ(request.given(), Values{1});
        EXPECT_FALSE(request.hasItem());
        return Reply::done();
    });
    EXPECT_EQ(reply.result, 0);
    EXPECT_TRUE(reply.fields.empty());
}

TEST_F(DispatcherTest, handsItemsTextsAndRealNumbersOver) {
    const auto bytes = Wire::request(CMD_AUDIO_COMMON_SET_ITEM_STRVALUE).i32(7).i32(8).cstr("arc").i32(9).bytes();
    askAudio(bytes, [](const Request& request, Events&) {
        EXPECT_EQ(request.text("stringParam"), "arc");
        EXPECT_EQ(request.integer("param2"), 9);
        return Reply::done();
    });
    EXPECT_TRUE(mComplaints.empty());
}

TEST_F(DispatcherTest, saysWhenAHandlerAsksForWhatIsNotThere) {
    const auto asking = [](const auto& ask) {
        return [ask](const Request& request, Events&) {
            ask(request);
            return Reply::done();
        };
    };
    const auto request = requestOf(CMD_AUDIO_SETVOLUME, {0, 35});
    EXPECT_EQ(askAudio(request, asking([](const Request& each) { each.integer("loudness"); })).result, kFailed);
    EXPECT_EQ(askAudio(request, asking([](const Request& each) { each.text("vol"); })).result, kFailed);
    EXPECT_EQ(mComplaints, (std::vector<std::string>{
                               "CMD_AUDIO_SETVOLUME was not answered: CMD_AUDIO_SETVOLUME has no loudness",
                               "CMD_AUDIO_SETVOLUME was not answered: vol of CMD_AUDIO_SETVOLUME is not a text"}));
}

TEST_F(DispatcherTest, sendsNoReplyOfAWrongForm) {
    const auto answering = [](const Values& values) {
        return [values](const Request&, Events&) { return Reply::of(values); };
    };
    EXPECT_EQ(askAudio(requestOf(CMD_AUDIO_GETVOLUME, {0}), answering({35})).fields, (std::vector<wire::Values>{{35}}));
    EXPECT_EQ(askAudio(requestOf(CMD_AUDIO_GETVOLUME, {0}), answering({35, 36})).result, kFailed);
    EXPECT_EQ(askAudio(requestOf(CMD_AUDIO_GETVOLUME, {0}), answering({"35"})).result, kFailed);
    EXPECT_EQ(askAudio(requestOf(CMD_AUDIO_GETVOLUME, {0}), answering({})).result, kFailed);
    EXPECT_EQ(askAudio(requestOf(CMD_AUDIO_SETVOLUME, {0, 1}), answering({1, 2})).result, kFailed);
    EXPECT_EQ(mComplaints.size(), 4U);
}

TEST_F(DispatcherTest, givesAValueInTheResultWordWhereTheCatalogueHasItThere) {
    const auto reply =
        askAudio(requestOf(CMD_AUDIO_GETDIOLOGUEENHANCEMENT), [](const Request&, Events&) { return Reply::of({1}); });
    EXPECT_EQ(reply.result, 1);
    EXPECT_TRUE(reply.fields.empty());
}

TEST_F(DispatcherTest, outlivesAHandlerThatThrows) {
    const auto request = requestOf(CMD_AUDIO_GETVOLUME, {0});
    EXPECT_EQ(askAudio(request, [](const Request&, Events&) -> Reply { throw std::runtime_error("no mixer"); }).result,
              kFailed);
    EXPECT_EQ(mComplaints, std::vector<std::string>{"CMD_AUDIO_GETVOLUME was not answered: no mixer"});
    EXPECT_EQ(askAudio(request, [](const Request&, Events&) -> Reply { throw 5; }).result, kFailed);
    EXPECT_EQ(mComplaints.back(), "CMD_AUDIO_GETVOLUME was not answered: the handler threw what is no std::exception");
    EXPECT_EQ(askAudio(request, [](const Request&, Events&) { return Reply::of({20}); }).result, 0);
}

TEST_F(DispatcherTest, letsAThreadEndInAHandler) {
    const auto request = requestOf(CMD_AUDIO_GETVOLUME, {0});
    std::thread([&] { askAudio(request, [](const Request&, Events&) -> Reply { ::pthread_exit(nullptr); }); }).join();
    EXPECT_TRUE(mComplaints.empty());
    EXPECT_EQ(askAudio(request, [](const Request&, Events&) { return Reply::of({20}); }).result, 0);
}

/** Whoever is told that the service is gone may ask the next one again, so that must not have been done. */
TEST(DispatcherEnd, answersWhatWasCarriedOutAndNothingElse) {
    const android::String16 interface("android.ITVBaseService");
    const auto ask = [&interface](const android::sp<Dispatcher>& dispatcher) {
        android::Parcel data;
        android::Parcel reply;
        data.writeInterfaceToken(interface);
        data.writeInt32(CMD_AUDIO_SETVOLUME);
        data.writeInt32(0);
        data.writeInt32(35);
        return dispatcher->transact(android::IBinder::FIRST_CALL_TRANSACTION, data, &reply);
    };
    for (int round = 0; round < 50; ++round) {
        const android::sp<Dispatcher> dispatcher =
            new Dispatcher(std::make_shared<KeptEvents>(), [](const std::string&) {});
        std::atomic<int> carriedOut{0};
        std::promise<void> begun;
        dispatcher->handle("audio", [&](const Request&, Events&) {
            ++carriedOut;
            begun.set_value();
            return Reply::done();
        });
        std::future<android::status_t> status = std::async(std::launch::async, [&] { return ask(dispatcher); });
        begun.get_future().wait();
        dispatcher->end();
        EXPECT_EQ(status.get(), android::NO_ERROR);
        EXPECT_EQ(ask(dispatcher), android::DEAD_OBJECT);
        EXPECT_EQ(carriedOut, 1);
    }
}

TEST_F(DispatcherTest, leavesLackOfMemoryToTheRuntime) {
    EXPECT_THROW(
        askAudio(requestOf(CMD_AUDIO_GETVOLUME, {0}), [](const Request&, Events&) -> Reply { throw std::bad_alloc(); }),
        std::bad_alloc);
}

TEST_F(DispatcherTest, publishesEventsByName) {
    askAudio(requestOf(CMD_AUDIO_SETVOLUME, {1, 35}), [](const Request& request, Events& events) {
        events.publish("volumeChanged", {request.integer("channel"), request.integer("vol")});
        return Reply::done();
    });
    EXPECT_EQ(mEvents->take(), (KeptEvents::Sent{{KELU_EM_MODE_VOLUME + 1, wordsOf({1, 35})}}));
}

TEST_F(DispatcherTest, saysWhenAnEventIsNotThatOfTheCatalogue) {
    const auto publishing = [](const std::string& name, const Values& values) {
        return [=](const Request&, Events& events) {
            events.publish(name, values);
            return Reply::of({0});
        };
    };
    const auto request = requestOf(CMD_AUDIO_GETVOLUME, {0});
    EXPECT_EQ(askAudio(request, publishing("louder", {})).result, kFailed);
    EXPECT_EQ(askAudio(request, publishing("volumeChanged", {1})).result, kFailed);
    EXPECT_EQ(mEvents->take(), KeptEvents::Sent{});
    EXPECT_EQ(mComplaints.size(), 2U);
}

TEST_F(DispatcherTest, knowsTheModulesOfTheCatalogue) {
    EXPECT_THROW(mDispatcher->handle("sound", [](const Request&, Events&) { return Reply::done(); }),
                 std::invalid_argument);
    for (const char* const module : {"audio", "config", "factory", "hdmicec", "pcmplayer", "pcsetting", "picture",
                                     "sourcemanager", "systemsetting", "vbimanager", "video"}) {
        EXPECT_NO_THROW(mDispatcher->handle(module, [](const Request&, Events&) { return Reply::done(); })) << module;
    }
}

} // namespace

} // namespace kelutv::service
