#pragma once

#include "bench/support/Child.h"

#include <optional>
#include <string>

namespace kelutv::bench {

/** A process that answers one packet of each connection to a socket by one packet. */
class BareListener {
public:
    /** Listens from now on. */
    BareListener(const std::string& path, size_t replyBytes);

private:
    std::optional<Child> mAnswerer;
};

} // namespace kelutv::bench
