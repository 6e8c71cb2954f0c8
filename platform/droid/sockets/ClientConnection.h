#pragma once

#include "LifeLine.h"
#include "SocketProtocol.h"
#include "socket/UniqueFd.h"

#include <cerrno>
#include <chrono>
#include <memory>

namespace android {

/** One connection of a client, for one call at a time. */
class ClientConnection {
public:
    /** Null when there is no memory. */
    static std::unique_ptr<ClientConnection> make(kq::UniqueFd socket, std::shared_ptr<LifeLine> line);

    /** How long each send and the wait for the greeting may take from now on. */
    bool setPatience(std::chrono::milliseconds patience);

    /** Takes the service's greeting unless it was taken: NO_ERROR, or why this connection cannot be used. */
    status_t greet(bool wait);
    /** One call and its answer; any status but the service's own leaves a connection that is of no more use. */
    status_t call(uint32_t code, uint32_t flags, const Parcel& data, Parcel* reply) {
        status_t status = send(code, flags, data);
        if (status == NO_ERROR && !mGreeted) {
            status = greet(true);
        }
        return status == NO_ERROR ? receive(reply) : status;
    }
    /** One one-way call. */
    status_t send(uint32_t code, uint32_t flags, const Parcel& data) {
        const MessageHead head{static_cast<uint32_t>(data.dataSize()), code, flags, NO_ERROR, ++mNumber};
        return mStream.send(head, data) ? static_cast<status_t>(NO_ERROR) : fail(whyNotTaken(errno));
    }

    bool usable() const { return mUsable; }

private:
    ClientConnection(kq::UniqueFd socket, std::shared_ptr<LifeLine> line, std::unique_ptr<MessageBuffer> buffer);

    status_t receive(Parcel* reply) {
        MessageHead head{};
        if (const Received received = mStream.receive(&head); received != Received::Message || head.number != mNumber) {
            return fail(whyNotAnswered(received));
        }
        mUsable = (head.flags & kLastAnswer) == 0;
        const status_t status = head.status == NO_ERROR ? reply->setData(mStream.body(), head.size) : head.status;
        mStream.dropLarge();
        return status;
    }
    static status_t whyNotAnswered(Received received);
    status_t whyNotTaken(int error);
    status_t fail(status_t status);

    const kq::UniqueFd mSocket;
    const std::shared_ptr<LifeLine> mLine;
    const std::unique_ptr<MessageBuffer> mBuffer;
    MessageStream mStream;
    uint32_t mNumber = 0;
    bool mGreeted = false;
    bool mUsable = true;
};

} // namespace android
