#include "tools/recordings/Recorded.h"

#include "support/Sanitizers.h"

#include <cstring>
#include <filesystem>

namespace kelutv::test {

std::vector<std::string> RecordingFolders::environment() const {
    return {sanitizerOptions(), "TMPDIR=" + mMeetings.path()};
}

bool RecordingFolders::areLeftEmpty(std::chrono::milliseconds patience) const {
    return eventually([this] { return std::filesystem::is_empty(mMeetings.path()); }, patience);
}

std::vector<int> lastWordsOf(const std::vector<recording::Transaction>& transactions) {
    std::vector<int> words;
    for (const recording::Transaction& transaction : transactions) {
        std::int32_t word = 0;
        std::memcpy(&word, transaction.request.data() + transaction.request.size() - sizeof(word), sizeof(word));
        words.push_back(word);
    }
    return words;
}

} // namespace kelutv::test
