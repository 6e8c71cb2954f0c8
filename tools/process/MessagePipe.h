#pragma once

#include <optional>
#include <string>

namespace kelutv::process {

/** A pipe that carries whole messages from one process to another. Made before fork(2); each process keeps one end. */
class MessagePipe {
public:
    /** @throws std::system_error */
    MessagePipe();
    ~MessagePipe();
    MessagePipe(const MessagePipe&) = delete;
    MessagePipe& operator=(const MessagePipe&) = delete;

    /** This process sends: the other end is closed here. */
    void keepSending();
    /** This process receives: the other end is closed here. */
    void keepReceiving();

    /** Ends the messages: the receiver gets what was sent and then sees the end. */
    void close();

    /** Waits until there is room for all of it. @return false when nobody receives it */
    bool send(const std::string& message) const;

    /** Readable when something has come, or the end. */
    int fd() const { return mReading; }

    /** The next message that is whole; nothing when there is none yet. Does not wait. */
    std::optional<std::string> take();

    /** Whether the other side has closed its end, or has ended, and every whole message has been taken. */
    bool isAtEnd() const { return mIsAtEnd; }

private:
    /** Takes over what has come. @return false at the end */
    bool receive();

    int mReading;
    int mWriting;
    std::string mReceived;
    bool mIsAtEnd = false;
};

} // namespace kelutv::process
