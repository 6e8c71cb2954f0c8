#include "tools/kelutv/compliance/person/PersonChecks.h"

#include "tools/kelutv/compliance/clients/Client.h"
#include "tools/kelutv/compliance/events/EventChecks.h"
#include "tools/kelutv/compliance/framework/Identifiers.h"
#include "tools/kelutv/compliance/framework/Setting.h"
#include "tools/kelutv/compliance/person/PersonTable.h"
#include "tools/kelutv/compliance/person/Questions.h"

#include <memory>

namespace kelutv::tool::compliance {

namespace {

constexpr char kPersonFamily[] = "person";
constexpr process::Seconds kTimeOfClient{10};

Json documentOf(const Outcome& outcome) { return {{"verdict", nameOf(outcome.verdict)}, {"reason", outcome.reason}}; }

/** What the client says it came to; an outcome that passed when it says that it goes on. */
Outcome outcomeIn(Client& client) {
    const std::optional<Json> message = client.hear(process::deadlineIn(kTimeOfClient));
    if (!message) {
        return {Verdict::failed, "the service did not answer in time, or ended the process that asked", std::nullopt,
                true};
    }
    if (const Json* const error = message->find("error")) {
        return {Verdict::failed, error->asText(), std::nullopt};
    }
    return {verdictNamed(message->at("verdict").asText()).value_or(Verdict::inconclusive),
            message->at("reason").asText(), std::nullopt};
}

Outcome outcomeOf(Said said, const std::string& no) {
    switch (said) {
    case Said::yes:
        return {};
    case Said::no:
        return {Verdict::failed, no, std::nullopt};
    case Said::skip:
        break;
    }
    return {Verdict::leftOut, "skipped by the person", std::nullopt};
}

class PersonCheck : public Check {
public:
    using Check::Check;

    bool startsProcesses() const override { return true; }

    Outcome run(Television& /*television*/) const override {
        Client client([this](const ClientLine& line) {
            try {
                work(line);
                line.say(documentOf({}));
            } catch (const Ended& ended) {
                line.say(documentOf(ended.outcome));
            }
        });
        if (const Outcome begun = outcomeIn(client); begun.verdict != Verdict::passed) {
            return begun;
        }
        const Outcome said = ask();
        client.say({{"go", true}});
        const Outcome ended = outcomeIn(client);
        return said.verdict == Verdict::passed ? ended : said;
    }

private:
    /** Says that it goes on before it waits for the person. @throws Ended with what it came to */
    virtual void work(const ClientLine& line) const = 0;
    virtual Outcome ask() const = 0;
};

/** Functions of the table are those of the catalogue. */
const wire::Function& functionCalled(const char* shortName) { return *wire::functionsNamed(shortName).front(); }

class Seen : public PersonCheck {
public:
    explicit Seen(const SeenCheck& row)
        : PersonCheck(
              subjectOf(kPersonFamily, functionCalled(row.setter), row.aspect,
                        std::string(row.question) + " What is set is to be seen or heard, and only a person can.")),
          mRow(row) {}

    bool changesState() const override { return true; }

private:
    void work(const ClientLine& line) const override {
        const wire::Function& setter = functionCalled(mRow.setter);
        Reading reading{wire::functionsNamed(setter.effect.back).front(), {}};
        if (mRow.key != nullptr) {
            reading.arguments.emplace_back(mRow.key);
        }
        Television television;
        Setting setting(television, setter, reading);
        setting.set(Json::array({mRow.value}));
        line.say(documentOf(Outcome{}));
        line.hear();
        setting.putBack();
    }

    Outcome ask() const override { return outcomeOf(askPerson(mRow.question), "the person says no"); }

    const SeenCheck& mRow;
};

class Done : public PersonCheck {
public:
    explicit Done(const DoneCheck& row)
        : PersonCheck({std::string(kPersonFamily) + '.' + row.module + '.' + row.aspect, kPersonFamily, row.module, "",
                       std::string(row.request) + " The television tells of what happens to it by an event."}),
          mRow(row) {}

    std::string event() const override { return mRow.event; }

private:
    void work(const ClientLine& line) const override {
        listenToEvents();
        line.say(documentOf(Outcome{}));
        line.hear();
        if (!hasHeard(mRow.event, {mRow.words.begin(), mRow.words.end()})) {
            throw Ended{{Verdict::failed, std::string("no ") + mRow.event + " of it came", std::nullopt}};
        }
    }

    Outcome ask() const override {
        const Outcome outcome = outcomeOf(askPerson(std::string(mRow.request) + " Done?"), "");
        return outcome.verdict == Verdict::failed
                   ? Outcome{Verdict::leftOut, "the person could not do it", std::nullopt}
                   : outcome;
    }

    const DoneCheck& mRow;
};

} // namespace

void addPersonChecks(Checks& checks, const Terms& terms) {
    if (!terms.isInteractive) {
        return;
    }
    for (const SeenCheck& row : seenChecks()) {
        checks.push_back(std::make_unique<Seen>(row));
    }
    for (const DoneCheck& row : doneChecks()) {
        checks.push_back(std::make_unique<Done>(row));
    }
}

} // namespace kelutv::tool::compliance
