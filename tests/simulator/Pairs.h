#pragma once

#include "client/wire/Observed.h"
#include "client/wire/Offered.h"

namespace kelutv::test {

/** A call that sets something, and what the getter shows from then on. */
struct Step {
    void (*set)(Observed& observed, int null);
    const char* shown;
};

struct Pair {
    const char* name;
    wire::Rows<Step> steps;
    void (*get)(Observed& observed, int null);
};

} // namespace kelutv::test
