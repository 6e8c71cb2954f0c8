#pragma once

#include "support/Wire.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kelutv::test {

/** A request that has been changed in one place. */
struct Mutant {
    /** What was changed: `byte`, `word`, `field`, `order` or `length`. */
    const char* kind;
    /** And how: `byte 60`. */
    std::string change;
    Bytes bytes;
    /** Why the change may give the same request. */
    const char* whySame;
};

/** Which part of a request is changed, and how thoroughly. */
struct MutantChoice {
    /** Also the token before the command, which is the same in all requests. */
    bool token = false;
    /** Every bit of a byte, not one of them. */
    bool everyBit = false;
};

/** The request with each of its bytes, words and fields changed, fields in another order, and another length. */
std::vector<Mutant> mutantsOf(const Bytes& request, const MutantChoice& choice);

} // namespace kelutv::test
