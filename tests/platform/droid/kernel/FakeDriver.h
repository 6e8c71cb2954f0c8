#pragma once

#include "droid/kernel/BinderDriver.h"
#include "support/Wire.h"

#include <linux/android/binder.h>

#include <atomic>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace kelutv::test {

/** One command with what comes with it. */
struct Command {
    uint32_t code;
    Bytes payload;
    /** The bytes that a message pointed to when it was sent. */
    Bytes content{};

    template <typename Payload> Payload as() const {
        Payload value{};
        std::memcpy(&value, payload.data(), std::min(sizeof(value), payload.size()));
        return value;
    }
};

template <typename Payload> Command command(uint32_t code, const Payload& payload) {
    const auto* const bytes = reinterpret_cast<const uint8_t*>(&payload);
    return {code, Bytes(bytes, bytes + sizeof(payload))};
}
inline Command command(uint32_t code) { return {code, {}}; }

/** A driver that says what the test tells it to say, and remembers what it was told. */
class FakeDriver : public android::BinderDriver {
public:
    FakeDriver() : mMemory(16 * 1024) {}

    int control(unsigned long request, void* argument) override;
    bool owns(const uint8_t* data, size_t length) const override;

    /** What the next read of a thread that does not serve gives; a read beyond all that fails. */
    void say(const std::vector<Command>& commands) { say(bytesOf(commands)); }
    void say(Bytes bytes);
    /** What the next read of a thread that serves gives; those wait for it. */
    void sayToServers(const std::vector<Command>& commands);
    /** From now on a thread that does not serve waits, as long as a test may, where there is nothing for it. */
    void keepSilent() { mSilent = true; }
    /** The next writes are left where they are. */
    void takeNothingNext(int writes = 1) { mWritesLeft = writes; }
    /** Of the next write the first command is taken alone, as of one whose first command fails. */
    void takeOneCommandNext() { mOneCommand = true; }
    /** The next exchanges of any thread fail with a negative errno value, and nothing of them is taken. */
    void failNext(int error, int times = 1);
    /** As failNext for one exchange, after so many that do not fail. */
    void failAfter(int exchanges, int error);
    /** The next reads of threads that do not serve fail after what was written is taken. */
    void failNextReads(int error, int times = 1);
    /** How often any thread has written to it or read from it. */
    int exchanges() const { return mExchanges; }
    /** How often a thread said that it ends. */
    int threadExits() const { return mThreadExits; }
    /** The next read claims to be longer than there is room. */
    void overstateNextRead() { mOverstate = true; }

    /** What all threads have sent since the last take. */
    std::vector<Command> takeSent();
    std::vector<uint32_t> takeSentCodes();
    /** Waits until a command was sent, which is taken with all before it. */
    bool waitForSent(uint32_t code);
    /** Waits until threads that do not serve have read all that there was for them. */
    bool waitUntilHeard();
    int contextManagers() const { return mContextManagers; }
    /** What happens when a process becomes the context manager, in the thread that asks for it. */
    void onContextManager(std::function<void()> happens) { mAsContextManager = std::move(happens); }
    /** How many threads the driver may ask for. */
    uint32_t mostThreads() const { return mMostThreads; }

    /** Puts bytes where the driver puts what it delivers. */
    const uint8_t* deliver(const void* bytes, size_t length);
    /** A message whose content lies in the driver's memory. */
    binder_transaction_data message(const Bytes& content, const std::vector<binder_size_t>& offsets = {});

private:
    static Bytes bytesOf(const std::vector<Command>& commands);
    binder_size_t take(const binder_write_read& exchange);
    bool remember(const Bytes& written);
    int read(binder_write_read* exchange, bool serves);

    std::vector<uint8_t> mMemory;
    size_t mUsed = 0;
    std::mutex mMutex;
    std::condition_variable mChanged;
    std::deque<Bytes> mToSay;
    std::deque<Bytes> mToServers;
    std::vector<Command> mSent;
    std::vector<std::thread::id> mServers;
    bool mOverstate = false;
    bool mSilent = false;
    std::atomic<int> mWritesLeft{0};
    std::atomic<bool> mOneCommand{false};
    std::atomic<int> mError{0};
    std::atomic<int> mBeforeFailures{0};
    std::atomic<int> mFailures{0};
    std::atomic<int> mReadFailures{0};
    std::atomic<int> mThreadExits{0};
    std::atomic<int> mExchanges{0};
    int mContextManagers = 0;
    std::function<void()> mAsContextManager = [] {};
    uint32_t mMostThreads = 0;
};

} // namespace kelutv::test
