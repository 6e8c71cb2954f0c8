#include "ClientConnection.h"

#include "Greeting.h"

#include <binder/Parcel.h>

#include <sys/socket.h>
#include <sys/time.h>

#include <cerrno>
#include <new>
#include <utility>

namespace android {

ClientConnection::ClientConnection(kq::UniqueFd socket, std::shared_ptr<LifeLine> line,
                                   std::unique_ptr<MessageBuffer> buffer)
    : mSocket(std::move(socket)), mLine(std::move(line)), mBuffer(std::move(buffer)), mStream(mSocket.get(), *mBuffer) {
}

std::unique_ptr<ClientConnection> ClientConnection::make(kq::UniqueFd socket, std::shared_ptr<LifeLine> line) {
    std::unique_ptr<MessageBuffer> buffer = MessageBuffer::make();
    if (buffer == nullptr) {
        return nullptr;
    }
    return std::unique_ptr<ClientConnection>(
        new (std::nothrow) ClientConnection(std::move(socket), std::move(line), std::move(buffer)));
}

bool ClientConnection::setPatience(std::chrono::milliseconds patience) {
    const timeval time{static_cast<time_t>(patience.count() / 1000),
                       static_cast<suseconds_t>(patience.count() % 1000 * 1000)};
    return ::setsockopt(mSocket.get(), SOL_SOCKET, SO_SNDTIMEO, &time, sizeof(time)) == 0 &&
           ::setsockopt(mSocket.get(), SOL_SOCKET, SO_RCVTIMEO, &time, sizeof(time)) == 0;
}

[[gnu::cold]] status_t ClientConnection::fail(status_t status) {
    mUsable = false;
    return status;
}

status_t ClientConnection::greet(bool wait) {
    if (mGreeted) {
        return NO_ERROR;
    }
    Greeting greeting{};
    switch (takeGreeting(mSocket.get(), wait, &greeting)) {
    case Greeted::Gone:
        return fail(DEAD_OBJECT);
    case Greeted::NotYet:
    case Greeted::Malformed:
        return fail(FAILED_TRANSACTION);
    case Greeted::Yes:
        break;
    }
    if (!mLine->isOf(greeting.instance)) {
        return fail(DEAD_OBJECT);
    }
    mGreeted = greeting.status == NO_ERROR;
    return mGreeted ? NO_ERROR : fail(greeting.status);
}

/** A service that refuses says so before it closes the connection. */
status_t ClientConnection::whyNotTaken(int error) {
    if (error != EPIPE && error != ECONNRESET) {
        return error == EAGAIN ? static_cast<status_t>(FAILED_TRANSACTION) : -error;
    }
    if (const status_t greeted = greet(false); greeted != NO_ERROR) {
        return greeted;
    }
    MessageHead refusal{};
    const Received received = mStream.receiveStart(&refusal, MSG_DONTWAIT);
    return received == Received::Message && refusal.status != NO_ERROR ? refusal.status
                                                                       : static_cast<status_t>(DEAD_OBJECT);
}

/** After something else than the answer. */
status_t ClientConnection::whyNotAnswered(Received received) {
    switch (received) {
    case Received::Gone:
        return DEAD_OBJECT;
    case Received::NoMemory:
        return NO_MEMORY;
    default:
        return FAILED_TRANSACTION;
    }
}

} // namespace android
