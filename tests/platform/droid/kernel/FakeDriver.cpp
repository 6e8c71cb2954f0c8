#include "FakeDriver.h"

#include "support/Deadline.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace kelutv::test {

namespace {

uint8_t* pointerTo(binder_uintptr_t address) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the driver speaks of addresses as numbers.
    return reinterpret_cast<uint8_t*>(static_cast<uintptr_t>(address));
}

/** Takes one of what is left; false when nothing is. */
bool countsDown(std::atomic<int>* left) {
    int before = *left;
    while (before > 0 && !left->compare_exchange_weak(before, before - 1)) {
    }
    return before > 0;
}

} // namespace

int FakeDriver::control(unsigned long request, void* argument) {
    if (request == BINDER_SET_CONTEXT_MGR) {
        ++mContextManagers;
        mAsContextManager();
        return 0;
    }
    if (request == BINDER_SET_MAX_THREADS) {
        mMostThreads = *static_cast<uint32_t*>(argument);
        return 0;
    }
    if (request == BINDER_THREAD_EXIT) {
        ++mThreadExits;
        return 0;
    }
    if (request != BINDER_WRITE_READ) {
        return -EINVAL;
    }
    ++mExchanges;
    auto* const exchange = static_cast<binder_write_read*>(argument);
    if (!countsDown(&mBeforeFailures) && countsDown(&mFailures)) {
        return mError;
    }
    const uint8_t* const written = pointerTo(exchange->write_buffer);
    exchange->write_consumed = take(*exchange);
    const bool serves = remember(Bytes(written, written + exchange->write_consumed));
    return exchange->read_size == 0 ? 0 : read(exchange, serves);
}

void FakeDriver::failNext(int error, int times) {
    mError = error;
    mFailures = times;
}

void FakeDriver::failAfter(int exchanges, int error) {
    failNext(error);
    mBeforeFailures = exchanges;
}

void FakeDriver::failNextReads(int error, int times) {
    mError = error;
    mReadFailures = times;
}

/** How much of what is written it takes. */
binder_size_t FakeDriver::take(const binder_write_read& exchange) {
    if (exchange.write_size == 0 || countsDown(&mWritesLeft)) {
        return 0;
    }
    if (!mOneCommand.exchange(false)) {
        return exchange.write_size;
    }
    uint32_t first = 0;
    std::memcpy(&first, pointerTo(exchange.write_buffer), sizeof(first));
    return sizeof(first) + _IOC_SIZE(first);
}

bool FakeDriver::remember(const Bytes& written) {
    const std::lock_guard lock(mMutex);
    for (size_t at = 0; at + sizeof(uint32_t) <= written.size();) {
        uint32_t code = 0;
        std::memcpy(&code, written.data() + at, sizeof(code));
        at += sizeof(code);
        const size_t size = std::min<size_t>(_IOC_SIZE(code), written.size() - at);
        const auto start = written.begin() + static_cast<std::ptrdiff_t>(at);
        mSent.push_back({code, Bytes(start, start + static_cast<std::ptrdiff_t>(size))});
        if (code == BC_TRANSACTION || code == BC_REPLY) {
            const auto message = mSent.back().as<binder_transaction_data>();
            const uint8_t* const content = pointerTo(message.data.ptr.buffer);
            mSent.back().content.assign(content, content + static_cast<size_t>(message.data_size));
        }
        at += size;
        if (code == BC_ENTER_LOOPER || code == BC_REGISTER_LOOPER) {
            mServers.push_back(std::this_thread::get_id());
        }
    }
    mChanged.notify_all();
    return std::find(mServers.begin(), mServers.end(), std::this_thread::get_id()) != mServers.end();
}

int FakeDriver::read(binder_write_read* exchange, bool serves) {
    if (!serves && countsDown(&mReadFailures)) {
        return mError;
    }
    std::unique_lock lock(mMutex);
    std::deque<Bytes>& queue = serves ? mToServers : mToSay;
    if (serves) {
        mChanged.wait(lock, [&] { return !queue.empty(); });
    } else if (mSilent) {
        mChanged.wait_for(lock, kPatience, [&] { return !queue.empty(); });
    }
    if (queue.empty()) {
        return -ENODATA;
    }
    const Bytes said = std::move(queue.front());
    queue.pop_front();
    mChanged.notify_all();
    const size_t length = std::min(said.size(), static_cast<size_t>(exchange->read_size));
    std::memcpy(pointerTo(exchange->read_buffer), said.data(), length);
    exchange->read_consumed = std::exchange(mOverstate, false) ? exchange->read_size + 1 : length;
    return 0;
}

bool FakeDriver::owns(const uint8_t* data, size_t length) const {
    return data >= mMemory.data() && data <= mMemory.data() + mMemory.size() &&
           length <= static_cast<size_t>(mMemory.data() + mMemory.size() - data);
}

Bytes FakeDriver::bytesOf(const std::vector<Command>& commands) {
    Bytes bytes;
    for (const Command& one : commands) {
        const auto* const code = reinterpret_cast<const uint8_t*>(&one.code);
        bytes.insert(bytes.end(), code, code + sizeof(one.code));
        bytes.insert(bytes.end(), one.payload.begin(), one.payload.end());
    }
    return bytes;
}

void FakeDriver::say(Bytes bytes) {
    const std::lock_guard lock(mMutex);
    mToSay.push_back(std::move(bytes));
    mChanged.notify_all();
}

void FakeDriver::sayToServers(const std::vector<Command>& commands) {
    const std::lock_guard lock(mMutex);
    mToServers.push_back(bytesOf(commands));
    mChanged.notify_all();
}

std::vector<Command> FakeDriver::takeSent() {
    const std::lock_guard lock(mMutex);
    return std::exchange(mSent, {});
}

std::vector<uint32_t> FakeDriver::takeSentCodes() {
    std::vector<uint32_t> codes;
    for (const Command& sent : takeSent()) {
        codes.push_back(sent.code);
    }
    return codes;
}

bool FakeDriver::waitForSent(uint32_t code) {
    std::unique_lock lock(mMutex);
    auto sent = mSent.end();
    const bool came = mChanged.wait_for(lock, kPatience, [&] {
        sent = std::find_if(mSent.begin(), mSent.end(), [code](const Command& one) { return one.code == code; });
        return sent != mSent.end();
    });
    mSent.erase(mSent.begin(), came ? sent + 1 : mSent.end());
    return came;
}

bool FakeDriver::waitUntilHeard() {
    std::unique_lock lock(mMutex);
    return mChanged.wait_for(lock, kPatience, [&] { return mToSay.empty(); });
}

const uint8_t* FakeDriver::deliver(const void* bytes, size_t length) {
    uint8_t* const place = mMemory.data() + mUsed;
    if (length > 0) {
        std::memcpy(place, bytes, length);
    }
    mUsed += (length + 15) & ~size_t{7};
    return place;
}

binder_transaction_data FakeDriver::message(const Bytes& content, const std::vector<binder_size_t>& offsets) {
    binder_transaction_data message{};
    message.data_size = content.size();
    message.data.ptr.buffer = reinterpret_cast<uintptr_t>(deliver(content.data(), content.size()));
    const size_t length = offsets.size() * sizeof(binder_size_t);
    message.offsets_size = length;
    message.data.ptr.offsets = reinterpret_cast<uintptr_t>(deliver(offsets.data(), length));
    return message;
}

} // namespace kelutv::test
