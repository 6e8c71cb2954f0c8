#include "tools/kelutv/compliance/reports/ReportFiles.h"

#include "tools/kelutv/compliance/reports/HtmlReport.h"
#include "tools/kelutv/compliance/reports/JunitReport.h"
#include "tools/kelutv/compliance/results/RunFile.h"
#include "tools/kelutv/output/Errors.h"

namespace kelutv::tool::compliance {

void addReportOptions(const Subcommand& command, ReportPaths& paths) {
    command.option("-o,--output", paths.json, "FILE", "Write the report as JSON, which 'diff' and 'report' read");
    command.option("--junit", paths.junit, "FILE", "Write it as JUnit XML, for a build server");
    command.option("--html", paths.html, "FILE", "Write it as a page that needs nothing else");
}

ReportFiles::ReportFiles(const ReportPaths& paths) {
    add(paths.json, textOf);
    add(paths.junit, junitOf);
    add(paths.html, htmlOf);
}

void ReportFiles::add(const std::string& path, std::string (*textOf)(const Run& run)) {
    if (path == "-") {
        throw UsageError("reports go into files; with --json standard output has a document for each check");
    }
    if (!path.empty()) {
        mFiles.push_back({textOf, std::make_unique<DataOutput>(path)});
    }
}

void ReportFiles::write(const Run& run) {
    for (const File& file : mFiles) {
        file.data->write(file.textOf(run));
        file.data->finish();
    }
}

} // namespace kelutv::tool::compliance
