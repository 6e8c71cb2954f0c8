#pragma once

#include <string>

namespace kelutv::tool {

/** Writes data to standard output at once. @throws ToolError when nobody takes it */
void writeData(const std::string& text);

/**
 * While this lives, what the library or anything else prints to standard output goes to standard error, so that it
 * does not mix with the data of the command. One at a time.
 */
class ForeignOutput {
public:
    ForeignOutput();
    ~ForeignOutput();
    ForeignOutput(const ForeignOutput&) = delete;
    ForeignOutput& operator=(const ForeignOutput&) = delete;

private:
    int mData = -1;
};

} // namespace kelutv::tool
