#pragma once

#include "tools/kelutv/compliance/framework/Check.h"

namespace kelutv::tool::compliance {

/** The family of all checks of this room. */
constexpr char kRefusalFamily[] = "refusal";

/**
 * Judges the reply to a request that is to be refused.
 *
 * @param isValue the result word is what the operation reads, so that only a negative one says no
 * @param whenTaken the verdict on an answer that does not say no
 */
Outcome outcomeOf(const Exchange& exchange, bool isValue, Verdict whenTaken);

/** Adds the checks of requests that belong to no operation: unknown commands, unknown codes. */
void addServiceChecks(Checks& checks);

} // namespace kelutv::tool::compliance
