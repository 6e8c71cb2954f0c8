#pragma once

#include "tools/kelutv/compliance/results/Run.h"
#include "tools/kelutv/output/DataOutput.h"
#include "tools/kelutv/parser/Parser.h"

#include <memory>
#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/** Where the reports of a run go; empty for those that are not wanted. */
struct ReportPaths {
    std::string json;
    std::string junit;
    std::string html;
};

/** Adds `-o`, `--junit` and `--html`. */
void addReportOptions(const Subcommand& command, ReportPaths& paths);

/** The reports of a run in their forms, written as files. */
class ReportFiles {
public:
    /** @throws ToolError when one of the files cannot be made, before anything else is done, UsageError for `-` */
    explicit ReportFiles(const ReportPaths& paths);

    /** @throws ToolError when one of them cannot be written */
    void write(const Run& run);

private:
    struct File {
        std::string (*textOf)(const Run& run);
        std::unique_ptr<DataOutput> data;
    };

    void add(const std::string& path, std::string (*textOf)(const Run& run));

    std::vector<File> mFiles;
};

} // namespace kelutv::tool::compliance
