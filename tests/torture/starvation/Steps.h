#pragma once

#include "torture/starvation/Starvation.h"

#include <utility>
#include <vector>

namespace kelutv::test {

/**
 * Which of `count` requests are refused in turn, counted from 1: all in the long form of the torture, a few in its
 * sample, else all at first and then ever fewer.
 */
std::vector<long> stepsTo(long count);

/** The resources that this build and the transport of these tests can be refused, once and from then on. */
std::vector<std::pair<starvation::Resource, bool>> starvableResources();

} // namespace kelutv::test
