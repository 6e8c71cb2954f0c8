#pragma once

#include "socket/UniqueFd.h"

#include <optional>
#include <string>
#include <vector>

namespace kelutv::test {

/** An entry in the event room, for one module, whose socket the test itself reads, or does not read. */
class FakeSubscriber {
public:
    FakeSubscriber(const std::string& name, unsigned int module);
    ~FakeSubscriber();
    FakeSubscriber(const FakeSubscriber&) = delete;
    FakeSubscriber& operator=(const FakeSubscriber&) = delete;

    /** Lets only `waiting` connections wait for `accept`. */
    void limitBacklog(int waiting);

    /** Takes the first waiting connection; the events read from then on come from it. */
    void accept();

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

    const std::string& path() const { return mPath; }

private:
    std::string mPath;
    kq::UniqueFd mListener;
    kq::UniqueFd mConnection;
};

} // namespace kelutv::test
