#include "Calls.h"
#include "DroidTest.h"
#include "peer/Peer.h"
#include "peer/PeerProtocol.h"
#include "peer/PeerService.h"

#include <binder/IPCThreadState.h>
#include <binder/IServiceManager.h>
#include <binder/ProcessState.h>

#include <unistd.h>

namespace kelutv::test {
namespace {

using CallerTest = DroidTest;

Bytes thisProcess() { return replyOf({::getpid(), static_cast<int32_t>(::getuid())}); }

TEST_F(CallerTest, isTheCallingProcessInsideACall) {
    const Peer peer;
    EXPECT_EQ(call(peer.binder(), kCaller).bytes, thisProcess());
}

TEST_F(CallerTest, isThisProcessOutsideACall) {
    const Peer peer;
    peer.binder()->pingBinder();
    EXPECT_EQ(android::IPCThreadState::self()->getCallingPid(), ::getpid());
    EXPECT_EQ(android::IPCThreadState::self()->getCallingUid(), ::getuid());
}

TEST_F(CallerTest, isTheCalledProcessWhenThatCallsBack) {
    android::ProcessState::self()->startThreadPool();
    ASSERT_EQ(android::defaultServiceManager()->addService(android::String16("caller.back"), new PeerService),
              android::NO_ERROR);
    const Peer peer;
    const Bytes request = Wire::reply().str16(u"caller.back").i32(kCaller).bytes();
    EXPECT_EQ(call(peer.binder(), kForward, request).bytes, replyOf({peer.pid(), static_cast<int32_t>(::getuid())}));
    EXPECT_EQ(android::IPCThreadState::self()->getCallingPid(), ::getpid());
}

TEST_F(CallerTest, isThisProcessInALocalCall) { EXPECT_EQ(call(new PeerService, kCaller).bytes, thisProcess()); }

} // namespace
} // namespace kelutv::test
