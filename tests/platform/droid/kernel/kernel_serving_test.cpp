#include "KernelTest.h"

#include "droid/LocalObjects.h"
#include "droid/Transport.h"
#include "platform/droid/peer/PeerProtocol.h"
#include "platform/droid/peer/PeerService.h"
#include "support/Capture.h"
#include "support/Deadline.h"

#include <binder/IPCThreadState.h>

#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <new>
#include <thread>

namespace kelutv::test {
namespace {

using android::LocalObjects;
using android::NO_ERROR;
using android::Parcel;
using android::sp;
using android::wp;
using Codes = std::vector<uint32_t>;

/** What comes in while a thread waits for an answer is served like what comes in for a thread that serves. */
class KernelServing : public KernelTest {
protected:
    ~KernelServing() override { LocalObjects::instance().release(number); }

    /** A call to the object, from process 12 of user 34. */
    binder_transaction_data incoming(uint32_t code, const Bytes& content) {
        binder_transaction_data message = driver.message(content);
        message.target.ptr = number;
        message.cookie = number;
        message.code = code;
        message.sender_pid = 12;
        message.sender_euid = 34;
        return message;
    }

    /** Lets a call come in while another one waits; what was sent for it. */
    std::vector<Command> serve(const binder_transaction_data& message) {
        driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_TRANSACTION, message)});
        driver.say({command(BR_TRANSACTION_COMPLETE)}); // for the answer
        driver.say({command(BR_REPLY, driver.message(replyOf({1})))});
        // On a thread of its own, so that only the call itself leaves the buffer of a reply, and gives it back.
        std::thread([this] { EXPECT_EQ(call(1, {}, nullptr), NO_ERROR); }).join();
        std::vector<Command> sent = driver.takeSent();
        EXPECT_EQ(sent.front().code, static_cast<uint32_t>(BC_TRANSACTION));
        EXPECT_EQ(sent.back().code, static_cast<uint32_t>(BC_FREE_BUFFER));
        return {sent.begin() + 1, sent.end() - 1};
    }

    /** The content of the one answer among what was sent. */
    static Bytes answerIn(const std::vector<Command>& sent, uint32_t flags) {
        if (sent.size() != 2 || sent[0].code != BC_FREE_BUFFER || sent[1].code != BC_REPLY) {
            ADD_FAILURE() << "not one buffer freed and one answer sent";
            return {};
        }
        const auto message = sent[1].as<binder_transaction_data>();
        EXPECT_EQ(message.flags, flags);
        return Bytes(static_cast<size_t>(message.data_size));
    }

    const sp<android::BBinder> object = new PeerService;
    const uint64_t number = LocalObjects::instance().hold(object);
};

TEST_F(KernelServing, answersACallThatComesWhileItWaits) {
    const binder_transaction_data message = incoming(kEcho, replyOf({1, 2, 3}));
    const std::vector<Command> sent = serve(message);
    EXPECT_EQ(answerIn(sent, 0).size(), 12u);
    EXPECT_EQ(sent[0].as<binder_uintptr_t>(), message.data.ptr.buffer);
}

TEST_F(KernelServing, handlersStatusIsTheAnswer) {
    EXPECT_EQ(answerIn(serve(incoming(kStatus, replyOf({-5}))), TF_STATUS_CODE).size(), 4u);
    EXPECT_EQ(answerIn(serve(incoming(999, {})), TF_STATUS_CODE).size(), 4u);
}

TEST_F(KernelServing, answerBeyondTheLimitIsAFailure) {
    const auto more = static_cast<int32_t>(android::kMaxTransaction + 4);
    EXPECT_EQ(answerIn(serve(incoming(kReplyOfSize, replyOf({more}))), TF_STATUS_CODE).size(), 4u);
}

TEST_F(KernelServing, callForNoObjectIsRefused) {
    binder_transaction_data message = incoming(kEcho, replyOf({1}));
    message.target.ptr = message.cookie = 0xDEAD;
    EXPECT_EQ(answerIn(serve(message), TF_STATUS_CODE).size(), 4u);
    message.target.ptr = message.cookie = 0; // the context manager's, which this process is not
    EXPECT_EQ(answerIn(serve(message), TF_STATUS_CODE).size(), 4u);
}

TEST_F(KernelServing, callOutsideTheDriversMemoryIsNotRead) {
    const Bytes elsewhere(64);
    binder_transaction_data message = incoming(kExit, {});
    message.data.ptr.buffer = reinterpret_cast<uintptr_t>(elsewhere.data());
    EXPECT_EQ(answerIn(serve(message), TF_STATUS_CODE).size(), 4u);
}

TEST_F(KernelServing, oneWayCallIsNotAnswered) {
    binder_transaction_data message = incoming(kNote, replyOf({7}));
    message.flags = TF_ONE_WAY;
    driver.say({command(BR_TRANSACTION, message)});
    driver.say({command(BR_DEAD_REPLY)});
    EXPECT_EQ(call(1, {}, nullptr), android::DEAD_OBJECT);
    EXPECT_EQ(driver.takeSentCodes(), (Codes{BC_TRANSACTION, BC_FREE_BUFFER}));
    Parcel notes;
    ASSERT_EQ(object->transact(kNotes, Parcel(), &notes), NO_ERROR);
    EXPECT_EQ(notes.readInt32(), 7);
}

/** Calls out while it is called, and notes for whom it works before and after. */
class Nested : public android::BBinder {
public:
    explicit Nested(android::KernelBinder& binder) : mBinder(binder) {}
    std::vector<int32_t> callers;

protected:
    android::status_t onTransact(uint32_t, const Parcel& data, Parcel* reply, uint32_t) override {
        android::IPCThreadState* const thread = android::IPCThreadState::self();
        const bool outer = data.readInt32() == 1;
        callers.push_back(thread->getCallingPid());
        const android::status_t status =
            outer ? android::KernelConversation(mBinder).call(9, 1, Parcel(), reply, 0) : NO_ERROR;
        callers.push_back(thread->getCallingPid());
        return status;
    }

private:
    android::KernelBinder& mBinder;
};

TEST_F(KernelServing, callsNest) {
    const sp<Nested> nested = new Nested(binder);
    const uint64_t own = LocalObjects::instance().hold(nested);
    binder_transaction_data outer = incoming(1, replyOf({1}));
    binder_transaction_data inner = incoming(1, replyOf({2}));
    outer.target.ptr = outer.cookie = inner.target.ptr = inner.cookie = own;
    inner.sender_pid = 56;
    driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_TRANSACTION, outer)});
    driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_TRANSACTION, inner)}); // within the nested call
    driver.say({command(BR_TRANSACTION_COMPLETE)});                                 // the inner answer
    driver.say({command(BR_REPLY, driver.message(replyOf({3})))});                  // of the nested call
    driver.say({command(BR_TRANSACTION_COMPLETE)});                                 // the outer answer
    driver.say({command(BR_REPLY, driver.message(replyOf({4})))});
    Parcel reply;
    EXPECT_EQ(call(1, {}, &reply), NO_ERROR);
    EXPECT_EQ(reply.readInt32(), 4);
    EXPECT_EQ(nested->callers, (std::vector<int32_t>{12, 56, 56, 12}));
    EXPECT_EQ(android::IPCThreadState::self()->getCallingPid(), ::getpid());
    LocalObjects::instance().release(own);
}

TEST_F(KernelServing, replyOfACallWithinACallGoesBackWithWhatTheThreadExchangesNext) {
    const sp<Nested> nested = new Nested(binder);
    const uint64_t own = LocalObjects::instance().hold(nested);
    binder_transaction_data outer = incoming(1, replyOf({1}));
    outer.target.ptr = outer.cookie = own;
    driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_TRANSACTION, outer)});
    driver.say(
        {command(BR_TRANSACTION_COMPLETE), command(BR_REPLY, driver.message(replyOf({3})))}); // of the one within
    driver.say({command(BR_TRANSACTION_COMPLETE)});                                           // the answer
    driver.say({command(BR_REPLY, driver.message(replyOf({4})))});
    std::thread([this] {
        EXPECT_EQ(call(1, {}, nullptr), NO_ERROR);
        EXPECT_EQ(driver.exchanges(), 4);
        EXPECT_EQ(driver.takeSentCodes(),
                  (Codes{BC_TRANSACTION, BC_TRANSACTION, BC_FREE_BUFFER, BC_REPLY, BC_FREE_BUFFER}));
    }).join();
    LocalObjects::instance().release(own);
}

/** Calls out during a shortage that lasts longer than a caller waits otherwise. */
class CallsInAShortage : public android::BBinder {
public:
    CallsInAShortage(FakeDriver& driver, android::KernelBinder& binder) : mDriver(driver), mBinder(binder) {}
    android::status_t result = android::UNKNOWN_ERROR;

protected:
    android::status_t onTransact(uint32_t, const Parcel&, Parcel* reply, uint32_t) override {
        mDriver.failNextReads(-ENOMEM, 15);
        result = android::KernelConversation(mBinder).call(9, 1, Parcel(), reply, 0);
        return result;
    }

private:
    FakeDriver& mDriver;
    android::KernelBinder& mBinder;
};

TEST_F(KernelServing, callWithinACallIsNotGivenUp) {
    const LogCapture log;
    const sp<CallsInAShortage> caller = new CallsInAShortage(driver, binder);
    const uint64_t own = LocalObjects::instance().hold(caller);
    binder_transaction_data message = incoming(1, {});
    message.target.ptr = message.cookie = own;
    driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_TRANSACTION, message)});
    driver.say({command(BR_REPLY, driver.message(replyOf({3})))}); // of the call within
    driver.say({command(BR_TRANSACTION_COMPLETE)});                // the answer
    driver.say({command(BR_REPLY, driver.message(replyOf({4})))});
    Parcel reply;
    EXPECT_EQ(call(1, {}, &reply), NO_ERROR);
    EXPECT_EQ(reply.readInt32(), 4);
    EXPECT_EQ(caller->result, NO_ERROR);
    EXPECT_EQ(driver.threadExits(), 0) << "that would take the outer call with it";
    LocalObjects::instance().release(own);
}

class Forking : public android::BBinder {
public:
    pid_t child = -1;

protected:
    android::status_t onTransact(uint32_t, const Parcel&, Parcel*, uint32_t) override {
        child = ::fork();
        return NO_ERROR;
    }
};

TEST_F(KernelServing, childForkedInACallSaysNothingToTheDriver) {
    const sp<Forking> forking = new Forking;
    const uint64_t own = LocalObjects::instance().hold(forking);
    binder_transaction_data message = incoming(1, {});
    message.target.ptr = message.cookie = own;
    driver.say({command(BR_TRANSACTION_COMPLETE), command(BR_TRANSACTION, message)});
    driver.say({command(BR_TRANSACTION_COMPLETE)}); // for the answer
    driver.say({command(BR_DEAD_REPLY)});
    const android::status_t status = call(1, {}, nullptr);
    const Codes sent = driver.takeSentCodes();
    if (forking->child == 0) {
        std::_Exit(sent == Codes{BC_TRANSACTION} ? 0 : 1);
    }
    EXPECT_EQ(status, android::DEAD_OBJECT);
    EXPECT_EQ(sent, (Codes{BC_TRANSACTION, BC_FREE_BUFFER, BC_REPLY}));
    int ended = -1;
    EXPECT_EQ(::waitpid(forking->child, &ended, 0), forking->child);
    EXPECT_EQ(ended, 0);
    LocalObjects::instance().release(own);
}

TEST_F(KernelServing, referencesOfTheDriverKeepTheObject) {
    sp<android::BBinder> held = new PeerService;
    const wp<android::BBinder> weak = held;
    const uint64_t own = LocalObjects::instance().hold(held);
    const binder_ptr_cookie reference{own, own};
    held.clear();
    driver.say({command(BR_INCREFS, reference), command(BR_ACQUIRE, reference), command(BR_DEAD_REPLY)});
    call(1, {}, nullptr);
    EXPECT_EQ(driver.takeSentCodes(), (Codes{BC_TRANSACTION, BC_INCREFS_DONE, BC_ACQUIRE_DONE}));
    LocalObjects::instance().release(own);
    EXPECT_NE(weak.promote(), nullptr);
    driver.say({command(BR_RELEASE, reference), command(BR_DEAD_REPLY)});
    call(1, {}, nullptr);
    EXPECT_NE(weak.promote(), nullptr);
    driver.say({command(BR_DECREFS, reference), command(BR_DEAD_REPLY)});
    call(1, {}, nullptr);
    EXPECT_EQ(weak.promote(), nullptr);
    EXPECT_EQ(LocalObjects::instance().find(own), nullptr);
}

TEST_F(KernelServing, furtherThreadsComeWhenTheDriverAsks) {
    EXPECT_EQ(driver.mostThreads(), 1023u);
    ASSERT_TRUE(binder.startServing());
    ASSERT_TRUE(driver.waitForSent(BC_ENTER_LOOPER));
    EXPECT_TRUE(binder.startServing());
    driver.sayToServers({command(BR_SPAWN_LOOPER)});
    EXPECT_TRUE(driver.waitForSent(BC_REGISTER_LOOPER));
}

TEST_F(KernelServing, goesOnAfterAShortageOfTheDriver) {
    const LogCapture log;
    driver.failNext(-ENOMEM, 3);
    ASSERT_TRUE(binder.startServing());
    ASSERT_TRUE(driver.waitForSent(BC_ENTER_LOOPER));
    driver.failNext(-EAGAIN);
    driver.sayToServers({command(BR_TRANSACTION, incoming(kEcho, replyOf({1})))});
    driver.sayToServers({command(BR_TRANSACTION_COMPLETE)});
    EXPECT_TRUE(driver.waitForSent(BC_REPLY)) << "the answer is kept";
}

/** A service that has no memory for what it is asked. */
class Starved : public android::BBinder {
protected:
    android::status_t onTransact(uint32_t, const Parcel&, Parcel*, uint32_t) override { throw std::bad_alloc(); }
};

TEST_F(KernelServing, requestThatThereIsNoMemoryForFailsAlone) {
    const sp<Starved> starved = new Starved;
    const uint64_t own = LocalObjects::instance().hold(starved);
    binder_transaction_data message = incoming(1, {});
    message.target.ptr = message.cookie = own;
    const std::vector<Command> sent = serve(message);
    ASSERT_EQ(answerIn(sent, TF_STATUS_CODE).size(), 4u);
    int32_t status = 0;
    std::memcpy(&status, sent[1].content.data(), sizeof(status));
    EXPECT_EQ(status, android::NO_MEMORY);
    EXPECT_EQ(answerIn(serve(incoming(kEcho, replyOf({1}))), 0).size(), 4u);
    LocalObjects::instance().release(own);
}

/** No further thread can be started while this lives: none has room for its stack. */
class NoThreads {
public:
    NoThreads() {
        pthread_attr_t huge;
        pthread_attr_init(&huge);
        pthread_getattr_default_np(&mBefore);
        pthread_attr_setstacksize(&huge, SIZE_MAX / 16 * 15);
        EXPECT_EQ(pthread_setattr_default_np(&huge), 0);
        pthread_attr_destroy(&huge);
    }
    ~NoThreads() {
        pthread_setattr_default_np(&mBefore);
        pthread_attr_destroy(&mBefore);
    }
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;

private:
    pthread_attr_t mBefore{};
};

TEST_F(KernelServing, threadThatCouldNotBeHadComesLater) {
    ASSERT_TRUE(binder.startServing());
    ASSERT_TRUE(driver.waitForSent(BC_ENTER_LOOPER));
    {
        const NoThreads none;
        LogCapture log;
        driver.sayToServers({command(BR_SPAWN_LOOPER)});
        std::vector<LogEntry> entries;
        ASSERT_TRUE(eventually([&] { return !(entries = log.take()).empty(); }));
        EXPECT_EQ(entries[0].text, "starting thread kq:binder: Resource temporarily unavailable");
    }
    EXPECT_TRUE(eventually([this] {
        driver.sayToServers({command(BR_NOOP)});
        const Codes sent = driver.takeSentCodes();
        return std::find(sent.begin(), sent.end(), BC_REGISTER_LOOPER) != sent.end();
    }));
}

TEST_F(KernelServing, contextManagerIsBehindNumberZero) {
    EXPECT_EQ(binder.becomeContextManager(object), 0);
    EXPECT_EQ(driver.contextManagers(), 1);
    binder_transaction_data message = incoming(kEcho, replyOf({1, 2}));
    message.target.ptr = message.cookie = 0;
    EXPECT_EQ(answerIn(serve(message), 0).size(), 8u);
}

TEST_F(KernelServing, childThatIsForkedUnderTheLockDoesNotServe) {
    int status = 0;
    driver.onContextManager([&] {
        const pid_t child = ::fork();
        if (child == 0) {
            ::alarm(static_cast<unsigned int>(std::chrono::ceil<std::chrono::seconds>(kPatience).count()));
            std::_Exit(binder.startServing() ? 1 : 0);
        }
        EXPECT_EQ(::waitpid(child, &status, 0), child);
    });
    EXPECT_EQ(binder.becomeContextManager(object), 0);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

} // namespace
} // namespace kelutv::test
