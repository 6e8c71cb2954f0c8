#include "simulator/replay/Matching.h"

#include <unordered_map>
#include <vector>

namespace kelutv::simulator {

namespace {

class MatchingLoosely : public Matching {
public:
    explicit MatchingLoosely(const ReplayScript& script) {
        for (std::size_t call = 0; call < script.calls.size(); ++call) {
            mCalls[script.calls[call].key].calls.push_back(call);
        }
    }

    std::optional<Match> find(Progress& progress, pid_t /*caller*/, const std::string& key) override {
        const auto known = mCalls.find(key);
        if (known == mCalls.end()) {
            return std::nullopt;
        }
        Alike& alike = known->second;
        for (; alike.next < alike.calls.size(); ++alike.next) {
            const std::size_t call = alike.calls[alike.next];
            if (isLeft(progress.calls[call])) {
                progress.calls[call] = askedFor(progress.calls[call]);
                return Match{call};
            }
            if (progress.calls[call] != Progress::Call::Gone) {
                alike.last = call;
            }
        }
        return alike.last ? std::optional(Match{*alike.last, std::nullopt, true}) : std::nullopt;
    }

private:
    /** The requests of the same bytes. */
    struct Alike {
        std::vector<std::size_t> calls;
        /** Those before this index are asked for or gone. */
        std::size_t next = 0;
        /** Of those before: the last one that was asked for. */
        std::optional<std::size_t> last;
    };

    std::unordered_map<std::string, Alike> mCalls;
};

} // namespace

std::unique_ptr<Matching> matchingLoosely(const ReplayScript& script) {
    return std::make_unique<MatchingLoosely>(script);
}

} // namespace kelutv::simulator
