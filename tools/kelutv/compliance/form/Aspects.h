#pragma once

#include "tools/kelutv/compliance/framework/Answer.h"
#include "tools/kelutv/compliance/framework/Check.h"
#include "wire/Function.h"

#include <vector>

namespace kelutv::tool::compliance {

/** Judges the answer to a call of this function. */
using Judge = Outcome (*)(const wire::Function& function, const Answer& answer);

/** One side of what a reply is to be. */
struct Aspect {
    const char* name;
    const char* sentence;
    /** Whether it says anything of such a reply. */
    bool (*concerns)(const wire::Function& function, const wire::Operation& operation);
    Judge judge;
};

/** The aspects of what the requests of this function are answered. */
std::vector<Aspect> aspectsOf(const wire::Function& function);

} // namespace kelutv::tool::compliance
