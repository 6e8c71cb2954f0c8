#pragma once

#include "recording/Line.h"
#include "tools/kelutv/parser/Parser.h"
#include "wire/text/RequestPattern.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelutv::tool {

/** What options choose of a recording. */
struct SelectionOptions {
    std::optional<double> from;
    std::optional<double> until;
    std::vector<std::uint32_t> processes;
    std::vector<std::string> commands;
};

/** Adds `--from`, `--until`, `--process` and `--command`; the options must live as long as the command. */
void addSelection(const Subcommand& command, SelectionOptions& options);

/** The lines that are meant. */
class Selection {
public:
    /** @throws UsageError */
    explicit Selection(const SelectionOptions& options);

    /**
     * Headers and lines of unknown kinds always; others by their time, then those of a process by that. Commands choose
     * among the transactions, and leave out everything else that happened in a process.
     */
    bool has(const recording::Line& line) const;

private:
    bool isInTime(const recording::Line& line) const;
    bool isOfProcess(const recording::Line& line) const;
    bool isOfCommand(const recording::Line& line) const;

    SelectionOptions mOptions;
    std::vector<wire::RequestPattern> mPatterns;
};

} // namespace kelutv::tool
