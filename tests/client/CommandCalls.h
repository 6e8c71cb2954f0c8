#pragma once

#include "support/Wire.h"

#include <binder/Parcel.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace kelutv::test {

/** What a command call makes of the reply: its first word, the word behind a zero, or the parcel behind a zero. */
enum class ReplyShape { Status, Value, Parcel };

/** One overload of the command calls with marker arguments. */
struct CommandCall {
    std::string name;
    ReplyShape shape;
    /** Whether a failed transaction leaves "invoke failure\n" in the log. */
    bool logsFailure;
    int (*make)(android::Parcel& result);
    /** The whole request that `make` sends. */
    Bytes request;
};

/** All 26 overloads. */
const std::vector<CommandCall>& commandCalls();

std::vector<CommandCall> commandCallsOf(ReplyShape shape);

std::string nameOf(const ::testing::TestParamInfo<CommandCall>& info);
void PrintTo(const CommandCall& call, std::ostream* out);

} // namespace kelutv::test
