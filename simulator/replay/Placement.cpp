#include "simulator/replay/Placement.h"

#include <utils/Errors.h>

#include <algorithm>
#include <map>
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
        std::set<std::size_t> connected;
        for (const News& news : section) {
            if (news.kind == News::Kind::Call) {
                mCalls.push_back(news.call);
            }
            if (news.kind == News::Kind::Loss ||
                (news.kind == News::Kind::Call && !isOfDeath(script.calls[news.call]))) {
                connected.insert(news.client);
            }
        }
        for (const std::size_t call : mCalls) {
            script.calls[call].isWithoutService = connected.count(script.calls[call].client) == 0;
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

    /** The service is away, if it still is, until the end of the section. */
    void finish(nanoseconds end) {
        if (mDeath) {
            mScript.absences.back() = end - *mDeath;
        }
    }

private:
    struct Publication {
        std::size_t happening;
        nanoseconds time;
        std::set<std::size_t> clients;
    };

    void placeCall(std::size_t index) {
        RecordedCall& call = mScript.calls[index];
        if (isOfDeath(call)) {
            call.death = deathOf(call);
            return;
        }
        mIsKnown = true;
        if (call.status == 0) {
            mBereft.erase(call.client);
            if (mDeath && call.begin > *mDeath) {
                mScript.absences.back() = call.begin - *mDeath;
                mDeath.reset();
            }
        }
    }

    /** Nothing as long as there was no service yet. A process that has lost it does not see it again, whoever else
     * does. */
    std::optional<std::size_t> deathOf(const RecordedCall& call) {
        const auto bereft = mBereft.find(call.client);
        if (bereft != mBereft.end()) {
            return bereft->second;
        }
        if (!mDeath && (mIsKnown || !call.isWithoutService)) {
            beginDeath(call.begin + call.duration);
        }
        return mBereft[call.client] = mDeath ? std::optional(mScript.absences.size() - 1) : std::nullopt;
    }

    void placeLoss(const News& news) {
        if (mBereft.count(news.client) > 0) {
            return;
        }
        const bool isNew = !mDeath;
        if (isNew) {
            beginDeath(news.time);
        }
        mBereft[news.client] = mScript.absences.size() - 1;
        if (!isNew) {
            return;
        }
        Happening happening = happeningAt(news);
        // A death that a request meets comes with that request.
        if (!happening.isDuring || !isOfDeath(mScript.calls[*happening.call])) {
            happening.death = mScript.absences.size() - 1;
            mScript.happenings.push_back(happening);
        }
    }

    void beginDeath(nanoseconds time) {
        mDeath = time;
        mScript.absences.emplace_back();
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
    /** A request has been answered. */
    bool mIsKnown = false;
    /** The processes that are told of a death, or that a request failed of, and of which one. */
    std::map<std::size_t, std::optional<std::size_t>> mBereft;
};

} // namespace

void placeNews(const std::vector<News>& section, ReplayScript& script) {
    Placement placement(section, script);
    for (const News& news : section) {
        placement.place(news);
    }
    if (!section.empty()) {
        placement.finish(section.back().time);
    }
}

} // namespace kelutv::simulator
