#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kelutv::tap {

/** One request of the client library and what came of it. */
struct Transaction {
    std::chrono::system_clock::time_point start;
    std::chrono::nanoseconds duration;
    /** The transport's status: 0 when a reply came, -32 without a service. */
    int status;
    std::vector<std::uint8_t> request;
    std::vector<std::uint8_t> reply;
};

/** The same while it is still in the library's hands; the bytes live as long as the call. */
struct TransactionView {
    std::chrono::system_clock::time_point start;
    std::chrono::nanoseconds duration;
    int status;
    const std::uint8_t* request;
    std::size_t requestSize;
    const std::uint8_t* reply;
    std::size_t replySize;
};

/** Runs after each transaction on the thread that made it, several threads at once; must not throw. */
using Observer = void (*)(const TransactionView& transaction);

/** Puts the observer in place of the one before; null for none. */
void observe(Observer observer);

/** A transaction to keep. */
Transaction copyOf(const TransactionView& view);

} // namespace kelutv::tap
