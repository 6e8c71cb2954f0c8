#pragma once

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Output.h"
#include "tools/kelutv/parser/Amounts.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** Sees to it that the command that is about to begin ends within this time. */
using LimitTime = std::function<void(Seconds)>;

/** Runs a command line in this process. */
using RunCommandLine = Exit (*)(std::vector<std::string> words, const LimitTime& limitTime);

class Parser;
struct Context;

/**
 * Makes the program of one command line, the program's name left out of its words: the command that the first word
 * names, or all commands, the options that all of them have, and its help.
 */
using MakeProgram = Parser (*)(Context& context, const std::vector<std::string>& words);

/** What every command has at hand. */
struct Context {
    RunCommandLine runCommandLine;
    MakeProgram makeProgram;
    Output output = {};
    Exit exit = Exit::Success;
    /** The time that the command may take, as its line or the environment says. */
    std::optional<Seconds> time = {};
};

} // namespace kelutv::tool
