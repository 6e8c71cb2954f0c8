#include "simulator/replay/Matching.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace kelutv::simulator {

namespace {

class MatchingLoosely : public Matching {
public:
    explicit MatchingLoosely(const ReplayScript& script) {
        for (std::size_t call = 0; call < script.calls.size(); ++call) {
            mCalls[script.calls[call].key].push_back(call);
        }
    }

    std::optional<Match> find(Progress& progress, pid_t /*caller*/, const std::string& key) override {
        const auto known = mCalls.find(key);
        if (known == mCalls.end()) {
            return std::nullopt;
        }
        const std::vector<std::size_t>& calls = known->second;
        const auto next = std::find_if(calls.begin(), calls.end(), [&progress](std::size_t call) {
            return progress.calls[call] == Progress::Call::Waiting;
        });
        if (next != calls.end()) {
            progress.calls[*next] = Progress::Call::Asked;
            return Match{*next};
        }
        const auto last = std::find_if(calls.rbegin(), calls.rend(), [&progress](std::size_t call) {
            return progress.calls[call] == Progress::Call::Asked;
        });
        return last != calls.rend() ? std::optional(Match{*last, std::nullopt, true}) : std::nullopt;
    }

private:
    std::unordered_map<std::string, std::vector<std::size_t>> mCalls;
};

} // namespace

std::unique_ptr<Matching> matchingLoosely(const ReplayScript& script) {
    return std::make_unique<MatchingLoosely>(script);
}

} // namespace kelutv::simulator
