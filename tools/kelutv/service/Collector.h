#pragma once

#include "tools/interposition/Tap.h"

#include <vector>

namespace kelutv::tool {

/** While this lives, what this thread sends to the service is added to the transactions. One at a time. */
class Collector {
public:
    explicit Collector(std::vector<interposition::Transaction>& transactions);
    ~Collector();
    Collector(const Collector&) = delete;
    Collector& operator=(const Collector&) = delete;
};

} // namespace kelutv::tool
