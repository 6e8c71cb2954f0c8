#pragma once

#include <binder/Parcel.h>

#include <vector>

namespace kelutv::bench {

/** One way to build a request and to read its reply: an operation with fixed arguments, and what it is answered. */
struct Shape {
    /** The name of its row in the table of budgets. */
    const char* name;
    int command;
    /** Calls the operation; false when it gave another answer than it should. */
    bool (*call)();
    /** Writes what stands behind the result 0; null for nothing. */
    void (*answer)(android::Parcel& reply);
};

/** Every shape, in the order of the table. */
const std::vector<Shape>& everyShape();

} // namespace kelutv::bench
