#pragma once

#include "support/ChildProcess.h"
#include "support/TestFolder.h"

#include <string>
#include <vector>

namespace kelutv::test {

/** `kelutv repl` of the tool that is tested, with lines that are written while it runs. */
class ReplOnPipe {
public:
    /**
     * @param options behind `repl`, as a shell reads them
     * @param environment "NAME=value" settings on top of the test's
     */
    explicit ReplOnPipe(const std::string& options = "", const std::vector<std::string>& environment = {});
    ~ReplOnPipe() { close(); }
    ReplOnPipe(const ReplOnPipe&) = delete;
    ReplOnPipe& operator=(const ReplOnPipe&) = delete;

    void write(const std::string& line) const;

    /** No more lines. */
    void close();

    ChildProcess& process() { return mProcess; }

private:
    const TestFolder mFolder;
    ChildProcess mProcess;
    int mLines;
};

} // namespace kelutv::test
