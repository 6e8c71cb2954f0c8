#include "tools/kelutv/snapshot/Taking.h"

#include "tools/kelutv/checks/Asking.h"
#include "tools/kelutv/checks/Visit.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/snapshot/StateReader.h"
#include "tools/kelutv/text/Clock.h"

#include <chrono>
#include <set>

namespace kelutv::tool {

namespace {

Finding findingOf(const StateRead& read, Verdict verdict = Verdict::Good) {
    return {verdict,
            Json{{"state", read.state}, {"values", read.values}, {"refusal", read.refusal}, {"result", read.result}}
                .dump()};
}

/** Puts what the readings found where it belongs; a state that was read already is not taken again. */
class Collection {
public:
    Collection() : mStart(std::chrono::steady_clock::now()) { mSnapshot.taken = textOfNow(); }

    void add(const Reading& reading, const Finding& finding) {
        if (finding.verdict == Verdict::Unlinked) {
            throw LinkError(finding.text);
        }
        if (finding.verdict != Verdict::Good && finding.verdict != Verdict::Unasked) {
            addMissing({readingText(reading), reading.function->name, finding.text, Json()});
            return;
        }
        const Json read = Json::parsed(finding.text);
        const std::string& state = read.at("state").asText();
        if (const std::string& refusal = read.at("refusal").asText(); !refusal.empty()) {
            addMissing({state, reading.function->name, refusal, read.at("result")});
        } else if (mStates.insert(state).second) {
            mSnapshot.held.push_back({state, read.at("values"), reading, read.at("result"), secondsNow()});
        }
    }

    void addMissing(const MissingState& missing) {
        if (mStates.insert(missing.state).second) {
            mSnapshot.missing.push_back(missing);
        }
    }

    Snapshot take() { return std::move(mSnapshot); }

private:
    double secondsNow() const {
        const auto passed = std::chrono::steady_clock::now() - mStart;
        return static_cast<double>(std::chrono::duration_cast<std::chrono::milliseconds>(passed).count()) / 1000;
    }

    std::chrono::steady_clock::time_point mStart;
    Snapshot mSnapshot;
    std::set<std::string> mStates;
};

/** Operations that were not answered in time; they are not asked under further keys. */
using Silent = std::set<const wire::Function*>;

Finding look(const Reading& reading, const Silent& silent) {
    if (silent.count(reading.function) != 0) {
        const StateRead unasked{readingText(reading), Json(),
                                "not asked: the operation was not answered under another key", Json()};
        return findingOf(unasked, Verdict::Unasked);
    }
    return askingFinds([&reading] { return findingOf(readState(reading)); });
}

std::vector<Check> checksOf(const std::vector<Reading>& readings, double limit, const Silent& silent) {
    std::vector<Check> checks;
    for (const Reading& reading : readings) {
        checks.push_back({readingText(reading), reading.function->module, limit,
                          [&reading, &silent] { return look(reading, silent); }});
    }
    return checks;
}

} // namespace

Snapshot takeSnapshot(double limit) { return takeSnapshot(allReadings(), limit); }

Snapshot takeSnapshot(const Readings& readings, double limit) {
    Silent silent;
    const std::vector<Check> checks = checksOf(readings.asked, limit, silent);
    Collection collection;
    std::size_t taken = 0;
    const Listener listener{nullptr, [&](const Check& /*check*/, const Finding& finding) {
                                const Reading& reading = readings.asked[taken++];
                                if (finding.verdict == Verdict::TimeOver) {
                                    silent.insert(reading.function);
                                }
                                collection.add(reading, finding);
                            }};
    if (makeChecks(checks, listener) != checks.size()) {
        throw ToolError(Exit::TimeOver, "nothing is answered any longer; --limit gives each answer more time");
    }
    for (const Unasked& unasked : readings.unasked) {
        collection.addMissing({unasked.state, unasked.function->name, unasked.reason, Json()});
    }
    return collection.take();
}

} // namespace kelutv::tool
