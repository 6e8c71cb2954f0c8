#include "DriverUser.h"
#include "platform/droid/Calls.h"
#include "platform/droid/peer/Peer.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "simulator/Simulator.h"
#include "support/ChildProcess.h"
#include "support/RuntimeDir.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace kelutv::test {
namespace {

constexpr size_t kMemory = 1024 * 1024 - 8 * 1024;
constexpr uint32_t kManager = 0;
constexpr uint32_t kGetService = 1;
constexpr uint32_t kAddService = 3;
constexpr uint32_t kListServices = 4;
constexpr uint32_t kRegisterForNotifications = 5;
constexpr int kGetVolume = 0x2009;

/** A process that speaks to the driver by hand, in the words of one level, among others that use the runtime. */
class BinderLevel : public ::testing::Test {
protected:
    /** A request to the service manager, up to behind its token. */
    static Wire toManager(int level) { return Wire::token(level, u"android.os.IServiceManager"); }
    static Wire toTelevision(int level) { return Wire::token(level, u"android.ITVBaseService").i32(kGetVolume).i32(0); }

    /** Adds the user's own object: the answer. */
    DriverUser::Message add(int level, const char16_t* name) {
        Wire request = toManager(level).str16(name);
        const binder_size_t place = request.bytes().size();
        const Bytes object = DriverUser::object();
        request.raw(object.data(), object.size());
        if (level == 30) {
            request.i32(12);
        }
        return mUser.call(kManager, kAddService, request.i32(0).i32(8).bytes(), {place});
    }

    /** Looks for a service: the answer. */
    DriverUser::Message get(int level, const char16_t* name) {
        return mUser.call(kManager, kGetService, toManager(level).str16(name).bytes());
    }

    /** What the library's client at a level says that the volume is. */
    static std::string volumeAt(int level) {
        ChildProcess client({KELUTV_VOLUME_CLIENT}, at(level));
        return client.exitCode() == 0 ? client.output().text() : "no client";
    }

    static ChildProcess::Options at(int level) {
        ChildProcess::Options options;
        options.environment = {"KQDROID_BINDER_LEVEL=" + std::to_string(level)};
        options.captureOutput = true;
        options.captureError = true;
        return options;
    }

    const RuntimeDir mDirectory;
    DriverUser mUser{kMemory};
};

class ForeignBinder : public BinderLevel, public ::testing::WithParamInterface<int> {};

TEST_P(ForeignBinder, findsTheServiceAndIsAnswered) {
    const Simulator simulator;
    const DriverUser::Message found = get(GetParam(), u"TVBaseService");
    ASSERT_EQ(found.handles.size(), 1u);
    EXPECT_EQ(found.content.size(), GetParam() == 30 ? 4u + 24u + 4u : 24u);
    const DriverUser::Message answer = mUser.call(found.handles[0], 1, toTelevision(GetParam()).bytes());
    ASSERT_EQ(answer.command, static_cast<uint32_t>(BR_REPLY));
    EXPECT_EQ(answer.status(), 0);
    ASSERT_EQ(answer.content.size(), 8u);
    EXPECT_EQ(Bytes(answer.content.begin(), answer.content.begin() + 4), replyOf({0}));
}

TEST_P(ForeignBinder, hearsTheTokenOfItsClientsLevelAndNothingElse) {
    mUser.enterLooper();
    const DriverUser::Message added = add(GetParam(), u"TVBaseService");
    EXPECT_EQ(hex(added.content), hex(replyOf({0})));
    ChildProcess client({KELUTV_VOLUME_CLIENT}, at(GetParam()));
    const DriverUser::Message call = mUser.nextCall();
    EXPECT_EQ(call.code, 1u);
    EXPECT_EQ(call.flags & TF_ONE_WAY, 0u);
    EXPECT_EQ(hex(call.content), hex(toTelevision(GetParam()).bytes()));
    mUser.answer(replyOf({0, 35}));
    EXPECT_EQ(client.exitCode(), 0);
    EXPECT_EQ(client.output().text(), "35\n");
}

TEST_P(ForeignBinder, isListed) {
    ASSERT_EQ(add(GetParam(), u"foreign").content, replyOf({0}));
    const Wire first = GetParam() == 30 ? toManager(30).i32(8) : toManager(GetParam()).i32(0).i32(8);
    const Bytes listed = GetParam() == 30 ? Wire::reply().i32(0).i32(1).str16(u"foreign").bytes()
                                          : Wire::reply().str16(u"foreign").bytes();
    EXPECT_EQ(hex(mUser.call(kManager, kListServices, first.bytes()).content), hex(listed));
}

TEST_P(ForeignBinder, isRefusedAsTheManagerOfItsLevelDoes) {
    const DriverUser::Message unknown = mUser.call(kManager, 99, toManager(GetParam()).bytes());
    EXPECT_EQ(unknown.status(), GetParam() == 30 ? -EBADMSG : -1);
    const DriverUser::Message bad = add(GetParam(), u"");
    EXPECT_EQ(bad.status(), GetParam() == 30 ? 0 : -1);
    EXPECT_EQ(hex(bad.content), hex(GetParam() == 30 ? replyOf({-3, 0, 0, 0}) : replyOf({-1})));
    const Bytes none =
        GetParam() == 30 ? replyOf({0, static_cast<int32_t>(BINDER_TYPE_BINDER), 0, 0, 0, 0, 0, 0}) : replyOf({0});
    EXPECT_EQ(hex(get(GetParam(), u"nobody").content), hex(none));
}

INSTANTIATE_TEST_SUITE_P(Each, ForeignBinder, ::testing::Values(28, 29, 30), ::testing::PrintToStringParamName());

TEST_F(BinderLevel, ofClientAndServiceMayDiffer) {
    for (const auto& [service, client] : {std::pair(28, 30), std::pair(30, 28), std::pair(29, 30)}) {
        ChildProcess simulator({KELUTV_SIMULATOR}, at(service));
        ASSERT_TRUE(simulator.output().waitFor("ready")) << simulator.error().text();
        const std::string volume = volumeAt(client);
        EXPECT_NE(volume, "-1\n") << client << " to " << service;
        EXPECT_EQ(volume, volumeAt(service));
        const std::string note = "there are requests of binder level " + std::to_string(client);
        EXPECT_NE(simulator.error().text().find(note), std::string::npos) << simulator.error().text();
        simulator.kill(SIGTERM);
        EXPECT_EQ(simulator.exitCode(), 0);
    }
}

TEST_F(BinderLevel, thirtyTellsOfServicesThatCome) {
    mUser.enterLooper();
    Wire request = toManager(30).str16(u"peer");
    const binder_size_t place = request.bytes().size();
    const Bytes object = DriverUser::object();
    request.raw(object.data(), object.size()).i32(12);
    ASSERT_EQ(mUser.call(kManager, kRegisterForNotifications, request.bytes(), {place}).content, replyOf({0}));
    const Peer peer;
    const DriverUser::Message told = mUser.nextCall();
    EXPECT_EQ(told.code, 1u);
    EXPECT_NE(told.flags & TF_ONE_WAY, 0u);
    EXPECT_EQ(told.handles.size(), 1u);
    const Bytes head = Wire::token(30, u"android.os.IServiceCallback").str16(u"peer").bytes();
    ASSERT_EQ(told.content.size(), head.size() + 24 + 4);
    EXPECT_EQ(hex(Bytes(told.content.begin(), told.content.begin() + static_cast<long>(head.size()))), hex(head));
    EXPECT_EQ(Bytes(told.content.end() - 4, told.content.end()), replyOf({12}));
}

} // namespace
} // namespace kelutv::test
