#include "tools/kelutv/compliance/life/LifeChecks.h"

#include "tools/kelutv/compliance/clients/KnownAnswers.h"
#include "tools/kelutv/compliance/events/EventChecks.h"
#include "tools/kelutv/compliance/life/Listening.h"
#include "tools/kelutv/compliance/life/Witness.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/process/Worker.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <deque>
#include <thread>

namespace kelutv::tool::compliance {

namespace {

constexpr int kClients = 20;
constexpr int kCallsBeside = 50;
constexpr std::chrono::seconds kTimeOfRestart{30};
/** A service that has just begun may have more to load before its answers are the right ones. */
constexpr std::chrono::seconds kTimeToSettle{5};
/** Between tries, of which each starts a process; twice as long each time up to the second one. */
constexpr std::chrono::milliseconds kFirstPause{100};
constexpr std::chrono::milliseconds kLongestPause{1000};

/** Lets something happen to clients; the service must go on. */
class LifeCheck : public Check {
public:
    LifeCheck(const std::string& aspect, const std::string& sentence, void (*happen)())
        : Check({"life.service." + aspect, "life", "service", "", sentence}), mHappen(happen) {}

    bool startsProcesses() const override { return true; }

    Outcome run(Television& /*television*/) const override {
        Witness witness;
        mHappen();
        const std::string complaint = witness.complaint();
        return {complaint.empty() ? Verdict::passed : Verdict::failed, complaint, std::nullopt};
    }

private:
    void (*mHappen)();
};

/** The moment of each is another one, as the calls go on. */
void killCallers() {
    for (int i = 0; i < kClients; ++i) {
        const Caller caller;
        caller.kill(SIGKILL);
    }
}

/** Whoever is stopped takes no reply. */
void stopCallers() {
    std::deque<Caller> callers(kClients);
    for (const Caller& caller : callers) {
        caller.kill(SIGSTOP);
    }
    for (int i = 0; i < kCallsBeside; ++i) {
        if (const std::string complaint = Witness().complaint(); !complaint.empty()) {
            throw ToolError(Exit::Service, "while others take no replies: " + complaint);
        }
    }
}

/** Listeners that nothing happens to until they are killed. */
class Listeners {
public:
    /** @throws ToolError when one of them cannot listen */
    Listeners() {
        for (int i = 0; i < kClients; ++i) {
            mClients.emplace_back([](const ClientLine& line) {
                listenToEvents();
                line.say({{"ready", true}});
                line.hear();
            });
        }
        for (Client& client : mClients) {
            requireListening(client);
        }
    }

    void kill(int signal) const {
        for (const Client& client : mClients) {
            client.kill(signal);
        }
    }

private:
    std::deque<Client> mClients;
};

/** Listeners are killed or stopped; changes must be made and told all the same. */
class ListenersCheck : public Check {
public:
    ListenersCheck(const std::string& aspect, const std::string& sentence, int signal, Terms terms)
        : Check({"life.service." + aspect, "life", "service", "", sentence}), mSignal(signal), mTerms(std::move(terms)),
          mWhyLeftOut(whyNoEvent(mTerms)) {}

    bool changesState() const override { return true; }
    bool startsProcesses() const override { return true; }
    std::string whyLeftOut() const override { return mWhyLeftOut; }

    Outcome run(Television& /*television*/) const override {
        Witness witness;
        const Listeners listeners;
        listeners.kill(mSignal);
        Outcome outcome = changeAndListen(mTerms);
        if (const std::string complaint = witness.complaint(); !complaint.empty()) {
            return {Verdict::failed, complaint, std::nullopt};
        }
        return outcome;
    }

private:
    int mSignal;
    Terms mTerms;
    std::string mWhyLeftOut;
};

/** The command is a line of the shell, so that it may be anything. @throws ToolError unless it ends well in time */
void runShell(const std::string& line) {
    process::Worker shell = process::Worker::start([&line] { return std::system(line.c_str()) == 0 ? 0 : 1; });
    if (!process::waitToRead({shell.fd()}, process::deadlineIn(kTimeOfRestart))) {
        throw ToolError(Exit::TimeOver, "the command that restarts the service does not end");
    }
    if (shell.wait() != 0) {
        throw ToolError(Exit::Failure, "the command that restarts the service failed");
    }
}

class Pauses {
public:
    void wait() {
        std::this_thread::sleep_for(mNext);
        mNext = std::min(2 * mNext, kLongestPause);
    }

private:
    std::chrono::milliseconds mNext = kFirstPause;
};

bool isOver(const process::Deadline& deadline) { return std::chrono::steady_clock::now() > *deadline; }

/** Waits for a new client to be answered; the service may still be on its way. @throws ToolError when none is */
void awaitService() {
    const process::Deadline deadline = process::deadlineIn(kTimeOfRestart);
    for (Pauses pauses;; pauses.wait()) {
        try {
            const Witness found;
            return;
        } catch (const ToolError&) {
            if (isOver(deadline)) {
                throw;
            }
        }
    }
}

/** What a new client has against the answers; empty as soon as they are those of before the restart. */
std::string complaintOfNewClient() {
    const process::Deadline deadline = process::deadlineIn(kTimeToSettle);
    for (Pauses pauses;; pauses.wait()) {
        const std::string complaint = Witness().complaint();
        if (complaint.empty() || isOver(deadline)) {
            return complaint;
        }
    }
}

class RestartCheck : public Check {
public:
    explicit RestartCheck(std::string command)
        : Check(
              {"life.service.restarted", "life", "service", "",
               "A service that was restarted is found again under its name, and answers as it did: clients that begin "
               "then need not know of it."}),
          mCommand(std::move(command)) {}

    bool changesState() const override { return true; }
    bool startsProcesses() const override { return true; }
    std::string whyLeftOut() const override {
        return mCommand.empty() ? "nothing says how the service is restarted; --restart does" : "";
    }

    Outcome run(Television& /*television*/) const override {
        requireKnownAnswers();
        Client client([](const ClientLine& line) {
            listenToEvents();
            line.say({{"ready", true}});
            line.say({{"ended", hearsOfTheEnd(kTimeOfRestart)}});
        });
        requireListening(client);
        runShell(mCommand);
        const std::optional<Json> message = client.hear(process::deadlineIn(kTimeOfRestart));
        if (!message || !message->at("ended").asBoolean()) {
            return {Verdict::inconclusive, "clients are not told that the service has ended", std::nullopt};
        }
        awaitService();
        if (const std::string complaint = complaintOfNewClient(); !complaint.empty()) {
            return {Verdict::failed, "after the restart " + complaint, std::nullopt};
        }
        return {};
    }

private:
    std::string mCommand;
};

} // namespace

void addLifeChecks(Checks& checks, const Terms& terms) {
    checks.push_back(std::make_unique<LifeCheck>(
        "killedCallers",
        "The service goes on when clients are killed in the middle of calls: any client may end at any time.",
        killCallers));
    checks.push_back(std::make_unique<LifeCheck>(
        "unreadReplies", "Clients that take no replies keep nobody else from being answered, and may end like that.",
        stopCallers));
    checks.push_back(std::make_unique<ListenersCheck>(
        "vanishedListeners", "Changes are made and told although listeners have ended without a word.", SIGKILL,
        terms));
    checks.push_back(std::make_unique<ListenersCheck>(
        "stoppedListeners", "Changes are made and told although listeners take no events.", SIGSTOP, terms));
    checks.push_back(std::make_unique<RestartCheck>(terms.restart));
}

} // namespace kelutv::tool::compliance
