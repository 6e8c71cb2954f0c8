#pragma once

#include "recording/Line.h"
#include "support/Deadline.h"
#include "support/TestFolder.h"
#include "tools/Tool.h"

#include <chrono>
#include <string>
#include <vector>

namespace kelutv::test {

/** Folders of a test: one for what is recorded, and one in which programs and recorders meet, which must be left empty.
 */
class RecordingFolders {
public:
    std::string file() const { return mFiles.pathOf("recording.jsonl"); }
    std::string pathOf(const std::string& entry) const { return mFiles.pathOf(entry); }

    /** Of the tool and of what it records. */
    std::vector<std::string> environment() const;

    /** Waits until nothing is in the folder in which programs and recorders meet. @return whether it came to that */
    bool areLeftEmpty(std::chrono::milliseconds patience = kPatience) const;

private:
    TestFolder mFiles;
    TestFolder mMeetings;
};

/** All lines of one kind. */
template <typename Content> std::vector<Content> all(const std::vector<recording::Line>& lines) {
    std::vector<Content> found;
    for (const recording::Line& line : lines) {
        if (const auto* const content = std::get_if<Content>(&line.content)) {
            found.push_back(*content);
        }
    }
    return found;
}

/** The last argument of each request: the volume that was set. */
std::vector<int> lastWordsOf(const std::vector<recording::Transaction>& transactions);

} // namespace kelutv::test
