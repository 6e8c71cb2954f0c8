#include "tools/kelutv/compliance/framework/Samples.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/calls/PlainArguments.h"

#include <algorithm>

namespace kelutv::tool::compliance {

namespace {

constexpr char kSomeLength[] = "4";

bool isLengthOfArray(const wire::Parameter& parameter, const wire::Function& function) {
    return std::any_of(function.parameters.begin(), function.parameters.end(), [&](const wire::Parameter& other) {
        return other.length != nullptr && std::string(other.length).find(parameter.name) != std::string::npos;
    });
}

} // namespace

Reading sampleOf(const wire::Function& function) {
    Reading reading{&function, {}};
    for (const wire::Parameter* const parameter : givenParameters(function)) {
        if (parameter->direction != wire::Direction::Length) {
            reading.arguments.push_back(isLengthOfArray(*parameter, function) ? kSomeLength
                                                                              : plainArgument(*parameter));
        }
    }
    return reading;
}

} // namespace kelutv::tool::compliance
