#pragma once

#include "tools/kelutv/compliance/framework/Check.h"
#include "tools/kelutv/compliance/framework/Terms.h"
#include "tools/kelutv/snapshot/Readings.h"
#include "wire/Function.h"

#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** What a check sets, and what else is read beside it. */
struct SetPlan {
    const wire::Function* setter;
    /** What reads it. */
    Reading reading;
    /** The same under all keys; lives as long as the program. */
    const std::vector<Reading>* all;
};

/** A function that sets something. */
struct SettableFunction {
    const wire::Function* setter;
    /** One for each key. */
    std::vector<SetPlan> plans;
    /** Why there are none; empty when there are. */
    std::string whyLeftOut;
};

/** Every function that sets something, in the order of the catalogue. */
std::vector<SettableFunction> settableFunctions(const Terms& terms);

/** Everything that can be read, with what sets of the plans are read back by. */
Readings readingsOfPlans();

/** The identifier has the name of the function that sets, with the keys of the one that reads. */
Subject subjectOf(const std::string& family, const SetPlan& plan, const std::string& aspect,
                  const std::string& sentence);

} // namespace kelutv::tool::compliance
