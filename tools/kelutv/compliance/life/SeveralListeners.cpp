#include "tools/kelutv/compliance/life/SeveralListeners.h"

#include "tools/kelutv/compliance/events/EventChecks.h"
#include "tools/kelutv/compliance/life/Listening.h"

#include <deque>
#include <memory>

namespace kelutv::tool::compliance {

namespace {

constexpr int kSeveral = 5;
/** The check of one event makes two changes and puts both back. */
constexpr std::size_t kEventsOfChanges = 4;
constexpr std::chrono::milliseconds kTimeOfEvent{2000};
constexpr std::chrono::milliseconds kTimeOfOneMore{500};
constexpr process::Seconds kTimeToTell{10};

/** Listens from now on, and says what has come when it is asked. */
void listenAndTell(const ClientLine& line, const std::string& event) {
    listenToEvents();
    line.say({{"ready", true}});
    line.hear();
    Json payloads = Json::array();
    for (const Bytes& payload : payloadsHeard(event, kEventsOfChanges, kTimeOfEvent)) {
        payloads.add(hexOf(payload));
    }
    for (const Bytes& payload : payloadsHeard(event, 1, kTimeOfOneMore)) {
        payloads.add(hexOf(payload));
    }
    line.say({{"payloads", payloads}});
}

/** What is wrong with what a listener was told; empty when it is what the first one was told, once each. */
std::string complaintAbout(Client& listener, Json& first) {
    const std::optional<Json> message = listener.hear(process::deadlineIn(kTimeToTell));
    if (!message || message->find("payloads") == nullptr) {
        return "a listener does not say what it was told";
    }
    const Json& payloads = message->at("payloads");
    if (payloads.entries().size() != kEventsOfChanges) {
        return "of " + std::to_string(kSeveral) + " listeners one was told " +
               std::to_string(payloads.entries().size()) + " times of two changes and of putting them back";
    }
    if (first.isNull()) {
        first = payloads;
    }
    return payloads == first ? "" : "listeners are told different things";
}

class SeveralListenersCheck : public Check {
public:
    explicit SeveralListenersCheck(Terms terms)
        : Check({"events.service.severalListeners", "events", "service", "",
                 "All who listen are told of a change, each once and all the same."}),
          mTerms(std::move(terms)), mWhyLeftOut(whyNoEvent(mTerms)) {}

    bool changesState() const override { return true; }
    bool startsProcesses() const override { return true; }
    std::string whyLeftOut() const override { return mWhyLeftOut; }

    Outcome run(Television& /*television*/) const override {
        const std::string event = checkOfOneEvent(mTerms)->event();
        std::deque<Client> listeners;
        for (int i = 0; i < kSeveral; ++i) {
            listeners.emplace_back([&event](const ClientLine& line) { listenAndTell(line, event); });
        }
        for (Client& listener : listeners) {
            requireListening(listener);
        }
        Outcome changed = changeAndListen(mTerms);
        return changed.verdict == Verdict::passed ? judge(listeners) : changed;
    }

private:
    static Outcome judge(std::deque<Client>& listeners) {
        for (const Client& listener : listeners) {
            listener.say({{"tell", true}});
        }
        Json first;
        for (Client& listener : listeners) {
            if (const std::string complaint = complaintAbout(listener, first); !complaint.empty()) {
                return {Verdict::failed, complaint, std::nullopt};
            }
        }
        return {};
    }

    Terms mTerms;
    std::string mWhyLeftOut;
};

} // namespace

void addSeveralListenersCheck(Checks& checks, const Terms& terms) {
    checks.push_back(std::make_unique<SeveralListenersCheck>(terms));
}

} // namespace kelutv::tool::compliance
