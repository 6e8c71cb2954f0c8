#include "simulator/replay/Placement.h"

#include <utils/Errors.h>

#include <algorithm>
#include <set>

namespace kelutv::simulator {

namespace {

using std::chrono::nanoseconds;

/** Within this time several processes are given one and the same event. */
constexpr std::chrono::seconds kOneEvent{1};

bool isOfDeath(const RecordedCall& call) { return call.status == android::DEAD_OBJECT; }

std::string countOf(const std::string& payload) {
    return "from the recording, " + std::to_string(payload.size()) + (payload.size() == 1 ? " byte" : " bytes");
}

class Placement {
public:
    Placement(const std::vector<News>& section, ReplayScript& script) : mScript(script) {
        for (const News& news : section) {
            if (news.kind == News::Kind::Call) {
                mCalls.push_back(news.call);
            }
        }
        std::stable_sort(mCalls.begin(), mCalls.end(),
                         [&script](auto a, auto b) { return script.calls[a].begin < script.calls[b].begin; });
        if (script.calls.size() > mCalls.size()) {
            mBefore = script.calls.size() - mCalls.size() - 1;
        }
    }

    void place(const News& news) {
        switch (news.kind) {
        case News::Kind::Call:
            placeCall(news.call);
            break;
        case News::Kind::Event:
            placeEvent(news);
            break;
        case News::Kind::Loss:
            placeLoss(news);
            break;
        }
    }

private:
    struct Publication {
        std::size_t happening;
        nanoseconds time;
        std::set<std::size_t> clients;
    };

    /** Calls that failed at the link belong to the death that is told of until the service answers again. */
    void placeCall(std::size_t index) {
        RecordedCall& call = mScript.calls[index];
        if (isOfDeath(call)) {
            if (!mDeath) {
                beginDeath(call.begin + call.duration);
            }
            call.death = mScript.deaths - 1;
            mBereft.insert(call.client);
        } else if (call.status == 0) {
            mBereft.erase(call.client);
            if (mDeath && call.begin > *mDeath) {
                mDeath.reset();
            }
        }
    }

    void placeLoss(const News& news) {
        if (mDeath || mBereft.count(news.client) > 0) {
            return;
        }
        beginDeath(news.time);
        Happening happening = happeningAt(news);
        // A death that a request meets comes with that request.
        if (!happening.isDuring || !isOfDeath(mScript.calls[*happening.call])) {
            happening.death = mScript.deaths - 1;
            mScript.happenings.push_back(happening);
        }
    }

    void beginDeath(nanoseconds time) {
        mDeath = time;
        ++mScript.deaths;
    }

    void placeEvent(const News& news) {
        const auto known = std::find_if(mPublications.begin(), mPublications.end(), [&](const Publication& each) {
            const PublishedEvent& event = mScript.happenings[each.happening].event;
            return event.identifier == news.event && event.payload == news.payload &&
                   each.clients.count(news.client) == 0 && std::chrono::abs(news.time - each.time) <= kOneEvent;
        });
        if (known != mPublications.end()) {
            known->clients.insert(news.client);
            return;
        }
        mPublications.erase(std::remove_if(mPublications.begin(), mPublications.end(),
                                           [&](const Publication& each) { return news.time - each.time > kOneEvent; }),
                            mPublications.end());
        mPublications.push_back({mScript.happenings.size(), news.time, {news.client}});
        mScript.happenings.push_back(happeningAt(news));
    }

    Happening happeningAt(const News& news) const {
        const auto behind =
            std::upper_bound(mCalls.begin(), mCalls.end(), news.time,
                             [this](nanoseconds time, std::size_t call) { return time < mScript.calls[call].begin; });
        Happening happening{news.line, mBefore,      false,
                            news.time, std::nullopt, {news.event, news.payload, countOf(news.payload)}};
        if (behind != mCalls.begin()) {
            const RecordedCall& call = mScript.calls[*(behind - 1)];
            happening.call = *(behind - 1);
            happening.isDuring = news.time <= call.begin + call.duration;
            happening.delay = news.time - call.begin - (happening.isDuring ? nanoseconds() : call.duration);
        }
        return happening;
    }

    ReplayScript& mScript;
    /** The requests of the section by the time at which they were sent. */
    std::vector<std::size_t> mCalls;
    /** The last request of the sections before. */
    std::optional<std::size_t> mBefore;
    std::vector<Publication> mPublications;
    /** When the death was told of that no answer has followed yet. */
    std::optional<nanoseconds> mDeath;
    /** The processes whose requests have failed since, and that may be told of it later. */
    std::set<std::size_t> mBereft;
};

} // namespace

void placeNews(const std::vector<News>& section, ReplayScript& script) {
    Placement placement(section, script);
    for (const News& news : section) {
        placement.place(news);
    }
}

} // namespace kelutv::simulator
