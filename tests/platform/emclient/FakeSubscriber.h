#pragma once

#include "socket/UniqueFd.h"

#include <optional>
#include <string>
#include <vector>

namespace kelutv::test {

/** An entry in the event room whose socket the test itself reads and writes, or does not. */
class FakeSubscriber {
public:
    explicit FakeSubscriber(const std::string& name);
    ~FakeSubscriber();
    FakeSubscriber(const FakeSubscriber&) = delete;
    FakeSubscriber& operator=(const FakeSubscriber&) = delete;

    /** Lets only `waiting` connections wait for `accept`. */
    void limitBacklog(int waiting);

    /** Takes the first waiting connection, and takes the place of its subscriber: what is read and told is its. */
    void accept();

    /** Takes the first waiting connection and tells its publisher the modules that are wanted. */
    void accept(const std::vector<unsigned int>& modules);

    /** Tells the publisher the modules that are wanted from now on. */
    void tell(const std::vector<unsigned int>& modules);

    /** Sends the publisher a packet; false when it is gone or the packet cannot be sent at once. */
    bool send(const std::vector<unsigned int>& words);

    /** True when the publisher closes the connection before the time is over. */
    bool isClosed();

    /** The next event's identifier; nothing when the publisher has gone or none comes in time. */
    std::optional<unsigned int> nextId();

    /** The identifiers up to and including `last`. */
    std::vector<unsigned int> idsUntil(unsigned int last);

    /** Tells whether somebody waits to be accepted. */
    bool hasConnection() const;

    /** Tells whether an event waits to be read. */
    bool hasEvent() const;

    /** Closes the connection and goes on listening. */
    void dropConnection() { mConnection = kq::UniqueFd(); }

    /** Closes both sockets, as the end of a process does, and leaves the entry. */
    void die();

    /** Gives the entry another name, as a subscriber does once it listens. */
    void rename(const std::string& name);

    const std::string& path() const { return mPath; }

private:
    std::string mPath;
    kq::UniqueFd mListener;
    kq::UniqueFd mConnection;
};

} // namespace kelutv::test
