#pragma once

#include <sys/types.h>

#include <csignal>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace kelutv::process {

/** A program to start. */
struct Program {
    /** Its name, looked for as a shell does, and its arguments. */
    std::vector<std::string> words;
    /** The file to run, when it is not the one that the name leads to. */
    std::string file = {};
    /** `NAME=value`: added to the environment of this process, or in place of what has that name there. */
    std::vector<std::string> settings = {};
    /** Descriptors of the program, and those of this process that they are copies of. */
    std::vector<std::pair<int, int>> descriptors = {};
    /** The signals that have their default action in it, whatever they do in this process. */
    std::vector<int> defaultSignals = {};
    /** The signals that are blocked in it; those of this thread when nothing is given. */
    std::optional<sigset_t> blockedSignals = {};
};

/** Starts a program. @throws std::system_error when it cannot be started; the error is that of posix_spawnp(3) */
pid_t spawn(const Program& program);

/** Why a program of this name, looked for as a shell does, cannot be started; no error when it can, as far as that is
 * to be seen beforehand. */
std::error_code whyNotRunnable(const std::string& name);

} // namespace kelutv::process
