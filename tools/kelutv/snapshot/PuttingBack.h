#pragma once

#include "tools/kelutv/snapshot/Snapshot.h"
#include "wire/Function.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** A call that gives a state its value. */
struct SetCall {
    const wire::Function* function;
    /** In text form. */
    std::vector<std::string> arguments;
};

/** How a call was found, or why there is none. */
struct FoundCall {
    /** Without a function when there is none. */
    SetCall call;
    std::string complaint;
};

/**
 * The call that gives the state exactly the value that was held. Of a state that the catalogue has, the call is proved
 * before it is given: the library's own function makes its request, which is read by the catalogue's rule. This process
 * must be one that may use the library.
 *
 * A dangerous operation makes the call only where no other can put the state back, as `isDangerous` says.
 */
FoundCall callPuttingBack(const HeldState& held);

/** The call of this function that gives the state exactly the value that was held, proved in the same way. */
FoundCall callOf(const wire::Function& setter, const HeldState& held);

/** Whether a client reads the one list of values when the other is stored: an answer fills up with zeros. */
bool readsAs(const Json& stored, const Json& read);

/** The command line that makes the call. */
std::string commandLineOf(const SetCall& call);

} // namespace kelutv::tool
