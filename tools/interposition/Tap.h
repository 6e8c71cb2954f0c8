#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace android {
class Parcel;
}

namespace kelutv::interposition {

/** One request to the service, from the client library or from the program itself, and what came of it. */
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
    /** The start by a clock that nobody sets. */
    std::chrono::steady_clock::time_point begin;
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
void setObserver(Observer observer);

/** Stands in for the service: gives the transport's status and fills the reply. Several threads at once. */
using Responder = int (*)(const android::Parcel& request, android::Parcel* reply);

/** Lets requests be answered here instead of being sent; null sends them again. */
void setResponder(Responder responder);

/** A transaction to keep. */
Transaction copyOf(const TransactionView& view);

} // namespace kelutv::interposition
