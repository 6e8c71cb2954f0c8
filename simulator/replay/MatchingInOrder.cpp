#include "simulator/replay/Matching.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

namespace kelutv::simulator {

namespace {

using Calls = std::vector<std::size_t>;

class MatchingInOrder : public Matching {
public:
    explicit MatchingInOrder(const ReplayScript& script)
        : mScript(script), mThreads(script.threads), mClients(script.clients) {
        for (std::size_t call = 0; call < script.calls.size(); ++call) {
            const RecordedCall& recorded = script.calls[call];
            if (mThreads[recorded.thread].empty()) {
                mClients[recorded.client].push_back(recorded.thread);
            }
            mThreads[recorded.thread].push_back(call);
        }
    }

    std::optional<Match> find(Progress& progress, pid_t caller, const std::string& key) override {
        std::optional<Match> match = matchOf(progress, caller, key);
        if (match) {
            Progress::Call& call = progress.calls[match->call];
            if (call == Progress::Call::Failing) {
                match->before.reset();
            }
            call = match->before ? Progress::Call::Early : askedFor(call);
            progress.last[mScript.calls[match->call].thread] = match->call;
        }
        return match;
    }

private:
    std::optional<Match> matchOf(Progress& progress, pid_t caller, const std::string& key) {
        const auto known = progress.clients.find(caller);
        if (known != progress.clients.end()) {
            const std::size_t client = known->second;
            if (const auto call = nextIn(progress, client, key)) {
                return Match{*call};
            }
            if (const auto match = asAnother(progress, caller, key)) {
                return match;
            }
            return aheadIn(progress, client, key);
        }
        if (const auto match = ofNewcomer(progress, caller, key)) {
            return match;
        }
        return asFurtherThread(progress, key);
    }

    /** The next request of a recorded thread of the process, of several the one that was recorded first. */
    std::optional<std::size_t> nextIn(const Progress& progress, std::size_t client, const std::string& key) const {
        std::optional<std::size_t> first;
        for (const std::size_t thread : mClients[client]) {
            const auto next = nextOf(progress, thread);
            if (next && mScript.calls[*next].key == key && (!first || *next < *first)) {
                first = next;
            }
        }
        return first;
    }

    /** Behind the one that was asked for last. */
    std::optional<std::size_t> nextOf(const Progress& progress, std::size_t thread) const {
        const Calls& calls = mThreads[thread];
        const auto begin = progress.last[thread] ? std::upper_bound(calls.begin(), calls.end(), *progress.last[thread])
                                                 : calls.begin();
        const auto next =
            std::find_if(begin, calls.end(), [&progress](std::size_t call) { return isLeft(progress.calls[call]); });
        return next != calls.end() ? std::optional(*next) : std::nullopt;
    }

    /** What was passed over before, else what the fewest requests are passed over for. */
    std::optional<Match> aheadIn(const Progress& progress, std::size_t client, const std::string& key) const {
        std::optional<Match> nearest;
        std::size_t fewest = SIZE_MAX;
        for (const std::size_t thread : mClients[client]) {
            std::size_t passed = 0;
            const auto next = nextOf(progress, thread);
            for (const std::size_t call : mThreads[thread]) {
                if (!isLeft(progress.calls[call])) {
                    continue;
                }
                const bool isPassedOver = !next || call < *next;
                if (mScript.calls[call].key == key) {
                    if (isPassedOver) {
                        return Match{call};
                    }
                    if (passed < fewest) {
                        nearest = Match{call, next};
                        fewest = passed;
                    }
                    break;
                }
                passed += isPassedOver ? 0 : 1;
            }
        }
        return nearest;
    }

    std::optional<Match> ofNewcomer(Progress& progress, pid_t caller, const std::string& key) {
        std::vector<bool> isTaken(mClients.size(), false);
        for (const auto& [process, client] : progress.clients) {
            isTaken[client] = true;
        }
        std::optional<Match> ahead;
        for (std::size_t client = 0; client < mClients.size(); ++client) {
            if (isTaken[client]) {
                continue;
            }
            if (const auto call = nextIn(progress, client, key)) {
                progress.clients[caller] = client;
                return Match{*call};
            }
            ahead = ahead ? ahead : aheadIn(progress, client, key);
        }
        if (ahead) {
            progress.clients[caller] = mScript.calls[ahead->call].client;
        }
        return ahead;
    }

    std::optional<Match> asFurtherThread(const Progress& progress, const std::string& key) const {
        for (std::size_t client = 0; client < mClients.size(); ++client) {
            if (const auto call = nextIn(progress, client, key)) {
                return Match{*call};
            }
        }
        return std::nullopt;
    }

    /**
     * Takes the process for another recorded one that begins with all it has asked for, and goes on with this request;
     * whoever was taken for that one must have begun like the recorded one that becomes free.
     */
    std::optional<Match> asAnother(Progress& progress, pid_t caller, const std::string& key) const {
        const std::size_t present = progress.clients.at(caller);
        const Calls asked = askedOf(progress, present);
        for (std::size_t other = 0; other < mClients.size(); ++other) {
            if (other == present || !beginsWith(other, asked, key)) {
                continue;
            }
            Progress exchanged = progress;
            if (!exchange(exchanged, present, other)) {
                continue;
            }
            if (const auto call = nextIn(exchanged, other, key)) {
                for (auto& [process, client] : exchanged.clients) {
                    client = client == present ? other : client == other ? present : client;
                }
                Match match{*call};
                match.exchanged = waitingOnlyIn(progress, exchanged);
                match.takenBack = waitingOnlyIn(exchanged, progress);
                progress = std::move(exchanged);
                return match;
            }
        }
        return std::nullopt;
    }

    static Calls waitingOnlyIn(const Progress& one, const Progress& other) {
        Calls calls;
        for (std::size_t call = 0; call < one.calls.size(); ++call) {
            if (one.calls[call] == Progress::Call::Waiting && other.calls[call] != Progress::Call::Waiting) {
                calls.push_back(call);
            }
        }
        return calls;
    }

    /** The requests of a recorded process that have been asked for, in the order of the recording. */
    Calls askedOf(const Progress& progress, std::size_t client) const {
        Calls asked;
        for (const std::size_t thread : mClients[client]) {
            std::copy_if(mThreads[thread].begin(), mThreads[thread].end(), std::back_inserter(asked),
                         [&progress](std::size_t call) {
                             return !isLeft(progress.calls[call]) && progress.calls[call] != Progress::Call::Gone;
                         });
        }
        std::sort(asked.begin(), asked.end());
        return asked;
    }

    /** Whether a recorded process begins with such requests and goes on with this one; looks at nothing else. */
    bool beginsWith(std::size_t client, const Calls& asked, const std::string& key) const {
        std::vector<std::size_t> places(mClients[client].size(), 0);
        const auto goesOnWith = [&](const std::string& wanted) {
            for (std::size_t i = 0; i < places.size(); ++i) {
                const Calls& calls = mThreads[mClients[client][i]];
                if (places[i] < calls.size() && mScript.calls[calls[places[i]]].key == wanted) {
                    ++places[i];
                    return true;
                }
            }
            return false;
        };
        return std::all_of(asked.begin(), asked.end(),
                           [&](std::size_t call) { return goesOnWith(mScript.calls[call].key); }) &&
               goesOnWith(key);
    }

    /** Lets two recorded processes have been asked for what the other one was; false when they did not begin alike. */
    bool exchange(Progress& progress, std::size_t one, std::size_t other) const {
        const Calls askedOfOne = takeBack(progress, one);
        const Calls askedOfOther = takeBack(progress, other);
        return askAll(progress, other, askedOfOne) && askAll(progress, one, askedOfOther);
    }

    Calls takeBack(Progress& progress, std::size_t client) const {
        const Calls asked = askedOf(progress, client);
        for (const std::size_t call : asked) {
            progress.calls[call] = takenBack(progress.calls[call]);
            progress.last[mScript.calls[call].thread].reset();
        }
        return asked;
    }

    bool askAll(Progress& progress, std::size_t client, const Calls& calls) const {
        return std::all_of(calls.begin(), calls.end(), [&](std::size_t call) {
            const auto next = nextIn(progress, client, mScript.calls[call].key);
            if (next) {
                progress.calls[*next] = askedFor(progress.calls[*next]);
                progress.last[mScript.calls[*next].thread] = *next;
            }
            return next.has_value();
        });
    }

    const ReplayScript& mScript;
    /** The requests of each thread, and the threads of each process, in the order in which they appeared. */
    std::vector<Calls> mThreads;
    std::vector<Calls> mClients;
};

} // namespace

std::unique_ptr<Matching> matchingInOrder(const ReplayScript& script) {
    return std::make_unique<MatchingInOrder>(script);
}

} // namespace kelutv::simulator
