#pragma once

#include "tools/kelutv/output/Json.h"
#include "tools/kelutv/trace/TracePipe.h"

#include "wire/text/RequestPattern.h"

#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace kelutv::tool {

/** Writes traced transactions as text or JSON, one a line, to a file or to standard error. */
class TraceLog {
public:
    struct Options {
        /** Empty for standard error. */
        std::string file;
        std::vector<std::string> filters;
        /** How many are written; 0 for all. */
        std::size_t count = 0;
        bool json = false;
    };

    /** @throws ToolError when the file cannot be opened, UsageError when a filter lets nothing through */
    explicit TraceLog(const Options& options);

    void write(const TracedTransaction& transaction);

    /** Whether it is among those that are written; counts it then. */
    bool takes(const TracedTransaction& transaction);

    /** The lines, or the document with JSON. */
    void writeSummary(const std::vector<std::string>& lines, const Json& document);

    /** Says that programs have left out so many transactions, since nobody took them in time. */
    void writeLeftOut(std::uint32_t count);

    /** @throws ToolError when anything was not written */
    void finish();

private:
    void writeLine(const std::string& line);
    bool takes(const wire::Request& request);
    bool isWanted(const wire::Request& request) const;

    std::unique_ptr<std::FILE, int (*)(std::FILE*)> mFile;
    std::string mPath;
    std::vector<wire::RequestPattern> mFilters;
    std::size_t mLeft;
    bool mLimited;
    bool mJson;
};

} // namespace kelutv::tool
