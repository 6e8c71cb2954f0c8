#pragma once

#include "client/wire/Observed.h"
#include "client/wire/Offered.h"

#include <string_view>

namespace kelutv::test {

/** One answer of the service and what the call must make of it. */
struct Answer {
    std::string_view reply;
    const char* observed;
    const char* log;
};

/** The same call with one pointer null: it is refused and nothing is sent. */
struct RefusedNull {
    const char* parameter;
    const char* observed;
    const char* log;
};

/** One operation; a null text stands for an outcome that a test written for the operation covers. */
struct WireOperation {
    const char* name;
    /** Makes the call; `null` says which row of `nulls` it is to be, counted from 1. */
    void (*call)(Observed& observed, int null);
    int command;
    std::string_view payload;
    wire::Rows<Answer> answers;
    wire::Rows<RefusedNull> nulls;
    const char* observedOnFailure;
    const char* logOnFailure;
    /** Nothing else goes in or comes out. */
    bool numbersOnly;
};

} // namespace kelutv::test
