#pragma once

#include <utils/Errors.h>

#include <cstdint>
#include <optional>

namespace android {

/** The first packet on every connection, from the server: that it serves, or that it does not serve this connection. */
struct Greeting {
    uint32_t mark;
    uint32_t version;
    /** NO_ERROR; else why the connection is refused, and its end follows. */
    int32_t status;
    uint32_t reserved;
    /** A random number of the process; never 0. */
    uint64_t instance;
};

/** How the server of this process greets. */
Greeting greetingOfProcess(status_t status);

/** What a look for a greeting came to. */
enum class Greeted {
    Yes,       // it is one of this protocol
    NotYet,    // nothing has come
    Gone,      // the connection has ended
    Malformed, // something else has come
};

/** Takes the greeting of a connection, without waiting for it or, with `wait`, for as long as the connection stands. */
Greeted takeGreeting(int socket, bool wait, Greeting* greeting);

} // namespace android
