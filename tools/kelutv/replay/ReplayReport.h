#pragma once

#include "tools/kelutv/output/Output.h"
#include "tools/kelutv/replay/PutBack.h"
#include "tools/kelutv/replay/Replaying.h"

#include <vector>

namespace kelutv::tool {

/** Tells of a call that was answered otherwise. */
void tellDifference(const RecordedCall& call, const std::vector<ValueDifference>& values, const Output& output);

/** Names what cannot be put back, and why, as far as there is any. */
void tellLost(const StatesToSet& states, const Output& output);

/**
 * Tells what was left out, and how many calls there were of each kind.
 *
 * @return `Exit::Link` when the service ended meanwhile, `Exit::Failure` when there is a difference
 */
Exit finishReplay(const ReplayPlan& plan, const ReplaySum& sum, const Output& output);

} // namespace kelutv::tool
