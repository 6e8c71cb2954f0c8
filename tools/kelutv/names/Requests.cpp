#include "tools/kelutv/names/Entry.h"
#include "tools/kelutv/names/EntryText.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/EnumeratorNames.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

constexpr char kCommands[] = "ATV_CMD_ID_E";
constexpr char kItems[] = "KELU_TV_CMDID_E";

std::string senderText(const std::vector<const wire::Function*>& functions) {
    constexpr std::size_t kMostNamed = 3;
    if (functions.empty()) {
        return "no function sends it";
    }
    return functions.size() <= kMostNamed ? "sent by " + joined(namesOf(functions), ", ")
                                          : "sent by " + std::to_string(functions.size()) + " functions";
}

std::vector<std::string> senderLines(const std::vector<const wire::Function*>& functions) {
    std::vector<std::string> lines;
    for (const wire::Function* const function : functions) {
        lines.push_back(std::string("Sent by: ") + function->shortName + ": " + function->texts->brief);
    }
    return lines;
}

void append(std::vector<std::string>& lines, const std::vector<std::string>& more) {
    lines.insert(lines.end(), more.begin(), more.end());
}

class CommandEntry : public Entry {
public:
    explicit CommandEntry(const wire::Enumerator& name) : Entry(name.name), mNumber(name.value) {}

    const char* kind() const override { return "command"; }

    std::string brief() const override { return numberText(mNumber) + ", " + senderText(senders()); }

    std::vector<std::string> lines() const override {
        std::vector<std::string> lines;
        if (const wire::Command* const command = wire::findCommand(mNumber)) {
            append(lines, linesOf(command->operation));
        }
        for (const std::string& item : items()) {
            lines.push_back("Item: " + item);
        }
        append(lines, senderLines(senders()));
        return lines;
    }

    void addTo(Json& document) const override {
        document["number"] = mNumber;
        if (const wire::Command* const command = wire::findCommand(mNumber)) {
            addOperation(document, command->operation);
        }
        document["items"] = items();
        document["functions"] = namesOf(senders());
    }

private:
    std::vector<const wire::Function*> senders() const { return wire::functionsSending(mNumber); }

    std::vector<std::string> items() const {
        std::vector<std::string> names;
        for (const wire::Item& item : wire::allItems()) {
            if (item.command == mNumber) {
                names.push_back(wire::nameOfValue(item.value, wire::findEnumeration(kItems)));
            }
        }
        return names;
    }

    std::int32_t mNumber;
};

class ItemEntry : public Entry {
public:
    explicit ItemEntry(const wire::Enumerator& name) : Entry(name.name), mNumber(name.value) {}

    const char* kind() const override { return "item"; }

    std::string brief() const override { return numberText(mNumber) + ", " + senderText(senders()); }

    std::vector<std::string> lines() const override {
        std::vector<std::string> lines;
        for (const wire::Item* const item : carried()) {
            lines.push_back("Carried by: " + nameOf(item->command));
            append(lines, linesOf(item->operation));
        }
        append(lines, senderLines(senders()));
        return lines;
    }

    void addTo(Json& document) const override {
        document["number"] = mNumber;
        document["commands"] = Json::array();
        for (const wire::Item* const item : carried()) {
            Json command{{"command", nameOf(item->command)}};
            addOperation(command, item->operation);
            document["commands"].add(command);
        }
        document["functions"] = namesOf(senders());
    }

private:
    /** Several items have the same number; those that functions send are told apart by their names. */
    bool isSent(const wire::SentRequest& request) const {
        return request.item != nullptr && request.itemValue == mNumber && request.item == name();
    }

    std::vector<const wire::Function*> senders() const {
        std::vector<const wire::Function*> senders;
        for (const wire::Function& function : wire::allFunctions()) {
            if (std::any_of(function.requests.begin(), function.requests.end(),
                            [this](const wire::SentRequest& request) { return isSent(request); })) {
                senders.push_back(&function);
            }
        }
        return senders;
    }

    bool isCarriedBy(std::int32_t command) const {
        const auto senders = wire::functionsSending(command, mNumber);
        return std::any_of(senders.begin(), senders.end(), [this](const wire::Function* function) {
            return std::any_of(function->requests.begin(), function->requests.end(),
                               [this](const wire::SentRequest& request) { return isSent(request); });
        });
    }

    /** What the commands that carry it do with it. */
    std::vector<const wire::Item*> carried() const {
        std::vector<const wire::Item*> items;
        for (const wire::Item& item : wire::allItems()) {
            if (item.value == mNumber && isCarriedBy(item.command)) {
                items.push_back(&item);
            }
        }
        return items;
    }

    static std::string nameOf(std::int32_t command) {
        return wire::nameOfValue(command, wire::findEnumeration(kCommands));
    }

    std::int32_t mNumber;
};

template <typename Kind> void addAll(Entries& entries, const char* enumeration) {
    for (const wire::Enumerator& name : wire::findEnumeration(enumeration)->values) {
        entries.push_back(std::make_unique<Kind>(name));
    }
}

} // namespace

void addRequests(Entries& entries) {
    addAll<CommandEntry>(entries, kCommands);
    addAll<ItemEntry>(entries, kItems);
}

} // namespace kelutv::tool
