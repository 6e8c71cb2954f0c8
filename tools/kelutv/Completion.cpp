#include "Completion.h"

#include "Call.h"
#include "Command.h"
#include "EepArea.h"
#include "Errors.h"
#include "Files.h"
#include "Function.h"
#include "Things.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>

namespace kelutv::tool {

namespace {

using Names = std::vector<std::string>;

bool begins(const std::string& word, const std::string& begun) { return word.compare(0, begun.size(), begun) == 0; }

bool isOption(const std::string& word) {
    return word.size() > 1 && word.front() == '-' && std::isdigit(static_cast<unsigned char>(word[1])) == 0;
}

/** Where in the command line the word that is begun stands. */
struct Spot {
    const CLI::App* command = nullptr;
    /** The option whose value it is; null for none. */
    const CLI::Option* option = nullptr;
    /** The words before it that are neither options nor commands. */
    Names arguments;
    /** Behind "--". */
    bool onlyArguments = false;
};

const CLI::Option* optionNamed(const CLI::App* command, const std::string& name) {
    for (; command != nullptr; command = command->get_parent()) {
        if (const CLI::Option* const option = command->get_option_no_throw(name)) {
            return option;
        }
    }
    return nullptr;
}

void step(Spot& spot, const std::string& word) {
    if (spot.option != nullptr) {
        spot.option = nullptr;
    } else if (!spot.onlyArguments && word == "--") {
        spot.onlyArguments = true;
    } else if (!spot.onlyArguments && isOption(word)) {
        const CLI::Option* const option = optionNamed(spot.command, word);
        spot.option = option != nullptr && option->get_items_expected_max() > 0 ? option : nullptr;
    } else if (const CLI::App* const below = commandNamed(*spot.command, word);
               below != nullptr && spot.arguments.empty()) {
        spot.command = below;
    } else {
        spot.arguments.push_back(word);
    }
}

/** The positional of the command that the next argument is for; null when there is none. */
const CLI::Option* positionalOf(const Spot& spot) {
    std::size_t place = spot.arguments.size();
    for (const CLI::Option* const option : spot.command->get_options()) {
        if (!option->get_positional()) {
            continue;
        }
        const auto takes = static_cast<std::size_t>(std::max(option->get_items_expected_max(), 1));
        if (place < takes) {
            return option;
        }
        place -= takes;
    }
    return nullptr;
}

void sortOut(Names& names) {
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
}

Names functionNames(const std::string& begun) {
    Names names;
    for (const Function* const function : allFunctions()) {
        names.push_back(function->shortName);
        if (!begun.empty()) {
            names.push_back(function->name);
        }
    }
    sortOut(names);
    return names;
}

Names moduleNames() {
    Names names;
    for (const Function* const function : allFunctions()) {
        names.push_back(function->module);
    }
    sortOut(names);
    return names;
}

Names enumeratorNames(const Enumeration& enumeration, const std::string& begun) {
    Names names = shortNamesOf(enumeration);
    for (const Enumerator& enumerator : enumeration.values) {
        if (!begun.empty()) {
            names.emplace_back(enumerator.name);
        }
    }
    return names;
}

Names valuesOf(const Parameter& parameter, const std::string& begun) {
    if (parameter.values.kind == Kind::Value && parameter.values.scalar == Scalar::Bool) {
        return {"false", "off", "on", "true"};
    }
    if (parameter.values.names != nullptr) {
        return enumeratorNames(*parameter.values.names, begun);
    }
    return {};
}

Names argumentNames(const Spot& spot, const std::string& begun) {
    try {
        const auto parameters = givenParameters(functionNamed(spot.arguments.front()));
        const std::size_t place = spot.arguments.size() - 1;
        return place < parameters.size() ? valuesOf(*parameters[place], begun) : Names();
    } catch (const UsageError&) {
        return {};
    }
}

Names thingValues(const Spot& spot) {
    const Names known = thingNames(true);
    const std::string& name = spot.arguments.front();
    return std::find(known.begin(), known.end(), name) == known.end() ? Names() : valueNames(thingNamed(name));
}

Names commandsBelow(const Spot& spot) {
    const CLI::App* command = spot.command->get_parent();
    for (const std::string& name : spot.arguments) {
        command = command == nullptr ? nullptr : commandNamed(*command, name);
    }
    return command == nullptr ? Names() : commandNames(*command);
}

Names namesOf(const char* enumerationName, const std::string& begun) {
    for (const Enumeration& enumeration : allEnumerations()) {
        if (enumeration.name == std::string(enumerationName)) {
            return enumeratorNames(enumeration, begun);
        }
    }
    return {};
}

Names areaNames() {
    Names names;
    for (const EepArea& area : eepAreas()) {
        names.emplace_back(area.name);
    }
    return names;
}

using Source = std::function<Names(const Spot&, const std::string&)>;

/** What may stand where the help says so. */
const std::map<std::string, Source>& sources() {
    static const std::map<std::string, Source> all{
        {"ARG", argumentNames},
        {"AREA", [](const Spot&, const std::string&) { return areaNames(); }},
        {"COMMAND", [](const Spot& spot, const std::string&) { return commandsBelow(spot); }},
        {"FILE", [](const Spot&, const std::string& begun) { return filesBeginning(begun); }},
        {"FUNCTION", [](const Spot&, const std::string& begun) { return functionNames(begun); }},
        {"NAME|NUMBER", [](const Spot&, const std::string& begun) { return namesOf("ATV_CMD_ID_E", begun); }},
        {"NUMBER|NAME", [](const Spot&, const std::string& begun) { return namesOf("KELU_EM_MODE_E", begun); }},
        {"PATTERN",
         [](const Spot&, const std::string& begun) {
             Names names = moduleNames();
             const Names functions = functionNames(begun);
             names.insert(names.end(), functions.begin(), functions.end());
             return names;
         }},
        {"PROGRAM", [](const Spot&, const std::string& begun) { return filesBeginning(begun); }},
        {"THING", [](const Spot& spot, const std::string&) { return thingNames(spot.command->get_name() == "set"); }},
        {"VALUE", [](const Spot& spot, const std::string&) { return thingValues(spot); }},
        {"WHEN",
         [](const Spot&, const std::string&) {
             return Names{"always", "auto", "never"};
         }},
    };
    return all;
}

std::string kindOf(const CLI::Option& option) {
    return option.get_positional() ? option.get_name(true) : option.get_option_text();
}

Names candidatesAt(const Spot& spot, const std::string& begun) {
    if (spot.option == nullptr && !spot.onlyArguments && isOption(begun + ' ')) {
        return optionNames(*spot.command);
    }
    if (spot.option == nullptr && begins(begun, "@")) {
        Names files = filesBeginning(begun.substr(1));
        std::transform(files.begin(), files.end(), files.begin(), [](const std::string& file) { return '@' + file; });
        return files;
    }
    if (spot.option == nullptr && spot.arguments.empty() && !commandNames(*spot.command).empty()) {
        return commandNames(*spot.command);
    }
    const CLI::Option* const option = spot.option != nullptr ? spot.option : positionalOf(spot);
    const auto source = option == nullptr ? sources().end() : sources().find(kindOf(*option));
    return source == sources().end() ? Names() : source->second(spot, begun);
}

} // namespace

std::vector<std::string> completionsOf(const std::vector<std::string>& words, const std::string& begun) {
    Context context;
    CLI::App app;
    makeProgram(app, context);
    Spot spot;
    spot.command = &app;
    for (const std::string& word : words) {
        step(spot, word);
    }
    Names names = candidatesAt(spot, begun);
    names.erase(
        std::remove_if(names.begin(), names.end(), [&begun](const std::string& name) { return !begins(name, begun); }),
        names.end());
    sortOut(names);
    return names;
}

} // namespace kelutv::tool
