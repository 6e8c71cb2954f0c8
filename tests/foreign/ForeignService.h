#pragma once

#include "support/ChildProcess.h"
#include "support/TestFolder.h"
#include "tools/Tool.h"

#include <memory>
#include <string>
#include <vector>

namespace kelutv::test {

/** The television of the foreign platform in a process of its own; it is there once this is constructed. */
class ForeignService {
public:
    /** @param options of the program: nothing, `--dies-at COMMAND` or `--answers HEXADECIMALS` */
    explicit ForeignService(const std::vector<std::string>& options = {});

    /** Where its names are. */
    std::string folder() const { return mFolder.path(); }

    /** What lets a program find it. */
    std::vector<std::string> environment() const { return {"FOREIGN_FOLDER=" + folder()}; }

    /** One run of the tool that finds it. */
    ToolRun run(std::vector<std::string> arguments) const { return runTool(std::move(arguments), environment()); }

    /** The same, with what it prints, for a run that must succeed. */
    std::string output(std::vector<std::string> arguments) const;

    /** Every request so far as hexadecimal digits. */
    std::vector<std::string> requests();

    ChildProcess& process() { return *mProcess; }

    /** Ends the service as a crash does, and returns when it is gone. */
    void end();

    /** Starts it anew once it has ended, with the same options. */
    void startAgain();

private:
    const std::vector<std::string> mOptions;
    TestFolder mFolder;
    std::unique_ptr<ChildProcess> mProcess;
};

} // namespace kelutv::test
