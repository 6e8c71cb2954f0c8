#include "tools/kelutv/comparison/RecordedThreads.h"

#include "tools/kelutv/comparison/HappeningReader.h"

#include <map>
#include <tuple>
#include <unordered_map>

namespace kelutv::tool {

namespace {

/** Puts what happened to its threads. Those of another section are other threads. */
class ThreadCollector {
public:
    ThreadCollector(const Ignored& ignored, Vocabulary& vocabulary) : mIgnored(ignored), mVocabulary(vocabulary) {}

    void add(const RecordedHappening& recorded) {
        const Token token = mVocabulary.tokenOf(recorded.happening);
        if (isIgnored(token)) {
            return;
        }
        RecordedThread& thread = threadOf(recorded);
        thread.tokens.push_back(token);
        thread.steps.push_back({recorded.number, recorded.duration});
    }

    std::vector<RecordedThread> take() { return std::move(mThreads); }

private:
    bool isIgnored(const Token& token) {
        const auto [place, isNew] = mIsIgnored.emplace(token.happening, false);
        if (isNew) {
            place->second = mIgnored.has(mVocabulary.happeningOf(token));
        }
        return place->second;
    }

    RecordedThread& threadOf(const RecordedHappening& recorded) {
        const recording::Moment& moment = recorded.moment;
        const std::tuple key(recorded.section, moment.process, moment.thread);
        const auto [place, isNew] = mIndexes.emplace(key, mThreads.size());
        if (isNew) {
            mThreads.push_back({moment.process, moment.thread});
        }
        return mThreads[place->second];
    }

    const Ignored& mIgnored;
    Vocabulary& mVocabulary;
    std::map<std::tuple<std::size_t, std::int32_t, std::int32_t>, std::size_t> mIndexes;
    std::unordered_map<std::uint32_t, bool> mIsIgnored;
    std::vector<RecordedThread> mThreads;
};

} // namespace

RecordedThreads threadsOf(const std::string& path, const Ignored& ignored, Vocabulary& vocabulary) {
    ThreadCollector collector(ignored, vocabulary);
    const std::int64_t leftOut =
        readHappenings(path, [&collector](const RecordedHappening& recorded) { collector.add(recorded); });
    return {collector.take(), leftOut};
}

} // namespace kelutv::tool
