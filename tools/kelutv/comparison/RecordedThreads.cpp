#include "tools/kelutv/comparison/RecordedThreads.h"

#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/recordings/RecordingInput.h"

#include <map>
#include <optional>
#include <utility>

namespace kelutv::tool {

namespace {

/** Puts the lines of a recording to their threads. Those of another section are other threads. */
class ThreadCollector {
public:
    ThreadCollector(const Ignored& ignored, Vocabulary& vocabulary) : mIgnored(ignored), mVocabulary(vocabulary) {}

    void add(const recording::Line& line, std::size_t number) {
        if (const auto* const header = std::get_if<recording::Header>(&line.content)) {
            mToken = header->token;
            mIndexes.clear();
        } else if (const auto* const gap = std::get_if<recording::Gap>(&line.content)) {
            mRecorded.leftOut += gap->count;
        } else if (const auto happening = happeningOf(line, mToken)) {
            add(*happening, line, number);
        }
    }

    RecordedThreads take() { return std::move(mRecorded); }

private:
    void add(const Happening& happening, const recording::Line& line, std::size_t number) {
        const Token token = mVocabulary.tokenOf(happening);
        if (isIgnored(token)) {
            return;
        }
        const auto* const transaction = std::get_if<recording::Transaction>(&line.content);
        RecordedThread& thread = threadOf(*recording::momentOf(line));
        thread.tokens.push_back(token);
        thread.steps.push_back({number, transaction != nullptr ? transaction->duration : 0});
    }

    bool isIgnored(const Token& token) {
        const auto [place, isNew] = mIsIgnored.emplace(token.whole, false);
        if (isNew) {
            place->second = mIgnored.has(mVocabulary.happeningOf(token));
        }
        return place->second;
    }

    RecordedThread& threadOf(const recording::Moment& moment) {
        const auto [place, isNew] =
            mIndexes.emplace(std::pair(moment.process, moment.thread), mRecorded.threads.size());
        if (isNew) {
            mRecorded.threads.push_back({moment.process, moment.thread});
        }
        return mRecorded.threads[place->second];
    }

    const Ignored& mIgnored;
    Vocabulary& mVocabulary;
    recording::Bytes mToken;
    std::map<std::pair<std::int32_t, std::int32_t>, std::size_t> mIndexes;
    std::unordered_map<std::uint32_t, bool> mIsIgnored;
    RecordedThreads mRecorded;
};

} // namespace

RecordedThreads threadsOf(const std::string& path, const Ignored& ignored, Vocabulary& vocabulary) {
    try {
        RecordingInput input(path);
        ThreadCollector collector(ignored, vocabulary);
        while (const auto line = input.next()) {
            collector.add(*line, input.reader().number());
        }
        return collector.take();
    } catch (const ToolError& error) {
        // The exit code of a failure says here that two recordings differ.
        throw error.exit() == Exit::Failure ? UsageError(error.what()) : error;
    }
}

} // namespace kelutv::tool
