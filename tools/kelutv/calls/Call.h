#pragma once

#include "tools/interposition/Tap.h"
#include "tools/kelutv/output/Output.h"
#include "wire/Function.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** What a call gave. */
struct CallResult {
    /** A number, a flag, a list, an object; null for a function without a result. Enumerated values as numbers. */
    Json result;
    /** The output parameters by name; one that was not written is null. */
    Json outputs;
    /** What went over the wire. */
    std::vector<interposition::Transaction> transactions;
    /** Why the call failed; empty when it did not. */
    std::string failure;
    /** The service's result, when that is why. */
    std::optional<std::int32_t> answer;
};

/**
 * The parameters that are given on the command line, in order; length parameters among them may all be left out.
 */
std::vector<const wire::Parameter*> givenParameters(const wire::Function& function);

/**
 * Calls the function with arguments in text form (see docs/tool.md) and says whether it failed.
 *
 * @throws UsageError for wrong arguments, nothing sent then; LinkError when there is no service or it is gone
 */
CallResult tryFunction(const wire::Function& function, const std::vector<std::string>& arguments);

/** As above. @throws ServiceError, too, when the function reports a failure */
CallResult callFunction(const wire::Function& function, const std::vector<std::string>& arguments);

/**
 * The exact requests of a call, made without a service: the library's own function runs, and every request is answered
 * with zeros.
 *
 * @throws UsageError for wrong arguments
 */
std::vector<std::vector<std::uint8_t>> requestsOf(const wire::Function& function,
                                                  const std::vector<std::string>& arguments);

/** A value of a type as documents have it: enumerated values as number and name, those in lists and records, too. */
Json valueDocument(const wire::ValueType& type, const Json& value);

/**
 * `{"function": NAME, "result": ..., "outputs": {...}}`, enumerated values as number and name; with `"failure"` when
 * the call failed.
 */
Json documentOf(const wire::Function& function, const CallResult& call);

/** The lines a person reads: `result: 0 (off)`, `pEnable: true`. */
std::vector<std::string> linesOf(const wire::Function& function, const CallResult& call);

/** The text of a value of a type: `35`, `2 (speaker)`, `"text"`, `true`, `[1, 2, 3]`, `red=1 green=2`. */
std::string textOf(const wire::ValueType& type, const Json& value);

} // namespace kelutv::tool
