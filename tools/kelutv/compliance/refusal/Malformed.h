#pragma once

#include "tools/kelutv/compliance/framework/Television.h"
#include "tools/kelutv/text/Hex.h"
#include "wire/Function.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** A request that no client sends, made of one that clients send. */
struct Malformed {
    /** What is wrong with it: `ends at byte 70 of 88`. */
    std::string what;
    Bytes request;
    /** The code of its transaction. */
    std::uint32_t code = kRequestCode;
};

using MalformedRequests = std::vector<Malformed>;

/** The token of another interface, and no token. */
MalformedRequests withWrongTokens(const Bytes& request);

/** Cut off at every byte of its token. */
MalformedRequests truncatedInToken(const Bytes& request);

/** Cut off at every byte behind its token; what only fills a text up to a whole word is not cut. */
MalformedRequests truncated(const Bytes& request);

/** With some bytes, a word and many words behind it. */
MalformedRequests withMore(const Bytes& request);

/** Of 1 MiB. */
MalformedRequests madeHuge(const Bytes& request);

/** Without each text, which is what is left of one that is null. */
MalformedRequests withoutTexts(const Bytes& request);

/**
 * With numbers of this parameter that the catalogue does not know: out of its range, or far from all values of its
 * enumeration. Empty where it knows nothing of the parameter, or the request has it not as a number of its own.
 */
MalformedRequests outOfRange(const wire::Parameter& parameter, const Bytes& request);

/** With commands far from all that a television might have and the catalogue lacks. */
MalformedRequests withUnknownCommands(const Bytes& request);

/** As transactions of other codes. */
MalformedRequests withUnknownCodes(const Bytes& request);

/** With items that no module has, in the place of the first number behind the command. */
MalformedRequests withUnknownItems(const Bytes& request);

} // namespace kelutv::tool::compliance
