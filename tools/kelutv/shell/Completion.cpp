#include "tools/kelutv/shell/Completion.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/conversion/Converter.h"
#include "tools/kelutv/names/Directory.h"
#include "tools/kelutv/newservice/Project.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/service/EepArea.h"
#include "tools/kelutv/settings/Settings.h"
#include "tools/kelutv/shell/AwaitedCompletion.h"
#include "tools/kelutv/shell/PathCompletion.h"
#include "tools/kelutv/text/FunctionNamed.h"
#include "wire/Interface.h"
#include "wire/text/Names.h"
#include "wire/text/RequestPattern.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>
#include <optional>

namespace kelutv::tool {

namespace {

using Names = std::vector<std::string>;

bool begins(const std::string& word, const std::string& begun) { return word.compare(0, begun.size(), begun) == 0; }

bool isOption(const std::string& word) {
    return word.size() > 1 && word.front() == '-' && std::isdigit(static_cast<unsigned char>(word[1])) == 0;
}

/** Where in the command line the word that is begun stands. */
struct Spot {
    Command command;
    /** What the option before it takes; nothing for none. */
    std::optional<Operand> option;
    /** The words before it that are neither options nor commands. */
    Names arguments;
    /** Behind "--". */
    bool onlyArguments = false;
    /** The values of the options before it, by the names that were written. */
    std::map<std::string, std::string> given;
    /** As it was written. */
    std::string optionName;
};

void step(Spot& spot, const std::string& word) {
    if (spot.option) {
        spot.option.reset();
        spot.given[spot.optionName] = word;
    } else if (!spot.onlyArguments && word == "--") {
        spot.onlyArguments = true;
    } else if (!spot.onlyArguments && isOption(word)) {
        const std::optional<Operand> option = spot.command.optionNamed(word);
        spot.option = option && option->most > 0 ? option : std::nullopt;
        spot.optionName = word;
    } else if (const auto below = spot.command.below(word); below && spot.arguments.empty()) {
        spot.command = *below;
    } else {
        spot.arguments.push_back(word);
    }
}

/** What the next argument of the command is; nothing when it takes no more. */
std::optional<Operand> positionalOf(const Spot& spot) {
    std::size_t place = spot.arguments.size();
    for (const Operand& operand : spot.command.positionals()) {
        if (place < operand.most) {
            return operand;
        }
        place -= operand.most;
    }
    return std::nullopt;
}

void sortOut(Names& names) {
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
}

Names functionNames(const std::string& begun) {
    Names names;
    for (const wire::Function& function : wire::allFunctions()) {
        names.emplace_back(function.shortName);
        if (!begun.empty()) {
            names.emplace_back(function.name);
        }
    }
    sortOut(names);
    return names;
}

/** Some two thousand, so they are offered where the first letter is there. */
Names entryNames(const std::string& begun) {
    try {
        return begun.empty() ? Names() : Directory().names();
    } catch (const UsageError&) {
        return {};
    }
}

Names moduleNames() {
    Names names;
    for (const wire::Function& function : wire::allFunctions()) {
        names.emplace_back(function.module);
    }
    sortOut(names);
    return names;
}

Names enumeratorNames(const wire::Enumeration& enumeration, const std::string& begun) {
    Names names = wire::namesOf(enumeration).shortNames();
    for (const wire::Enumerator& enumerator : enumeration.values) {
        if (!begun.empty() && !enumerator.isEndMarker) {
            names.emplace_back(enumerator.name);
        }
    }
    return names;
}

Names valuesOf(const wire::Parameter& parameter, const std::string& begun) {
    if (parameter.values.kind == wire::ValueKind::Single && parameter.values.scalar == wire::ScalarType::Bool) {
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

Names settingValues(const Spot& spot) {
    const Names known = settingNames(true);
    const std::string& name = spot.arguments.front();
    return std::find(known.begin(), known.end(), name) == known.end() ? Names() : valueNames(settingNamed(name));
}

Names commandsBelow(const Spot& spot) {
    std::optional<Command> command = spot.command.above();
    for (const std::string& name : spot.arguments) {
        command = command ? command->below(name) : std::nullopt;
    }
    return command ? command->namesBelow() : Names();
}

Names namesOf(const char* enumerationName, const std::string& begun) {
    return enumeratorNames(*wire::findEnumeration(enumerationName), begun);
}

/** The file that the line says has the television's events. */
std::string eventFileOf(const Spot& spot) {
    const auto file = spot.given.find("--events");
    return file != spot.given.end() ? file->second : "";
}

Names areaNames() {
    Names names;
    for (const EepArea& area : eepAreas()) {
        names.emplace_back(area.name);
    }
    return names;
}

/** What `cec` and `power` can do, and the keys that the first can press. */
Names actionNames(const Spot& spot, const std::string& begun) {
    const bool isCec = spot.command.name() == "cec";
    if (spot.arguments.empty()) {
        return isCec ? Names{"key", "select"} : Names{"resume", "suspend"};
    }
    return isCec && spot.arguments == Names{"key"} ? namesOf("E_MW_CEC_UI_CMD", begun) : Names();
}

Names pathNames(const Spot& /*spot*/, const std::string& begun) { return pathsBeginningWith(begun); }

using Source = std::function<Names(const Spot&, const std::string&)>;

/** What may stand where the help says so. */
std::map<std::string, Source>& sources() {
    static std::map<std::string, Source> all{
        {"A", pathNames},
        {"ARG", argumentNames},
        {"ACTION", actionNames},
        {"AREA", [](const Spot&, const std::string&) { return areaNames(); }},
        {"B", pathNames},
        {"COMMAND", [](const Spot& spot, const std::string&) { return commandsBelow(spot); }},
        {"DIR", pathNames},
        {"EVENT", [](const Spot& spot, const std::string&) { return eventNames(eventFileOf(spot)); }},
        {"FIELD",
         [](const Spot& spot, const std::string& begun) {
             return fieldNames(eventFileOf(spot), spot.arguments.front(), begun);
         }},
        {"FILE", pathNames},
        {"FORM", [](const Spot&, const std::string&) { return converterNames(); }},
        {"FUNCTION", [](const Spot&, const std::string& begun) { return functionNames(begun); }},
        {"KIND",
         [](const Spot&, const std::string&) {
             Names names = entryKinds();
             names.emplace_back("function");
             return names;
         }},
        {"MODULE",
         [](const Spot& spot, const std::string& begun) {
             return spot.command.name() == "new-service" ? modulesWithCommands() : namesOf("KELU_EM_MODE_E", begun);
         }},
        {"MODULE|PATTERN",
         [](const Spot&, const std::string& begun) {
             Names names = moduleNames();
             const Names functions = functionNames(begun);
             names.insert(names.end(), functions.begin(), functions.end());
             return names;
         }},
        {"NAME|NUMBER", [](const Spot&, const std::string& begun) { return namesOf("ATV_CMD_ID_E", begun); }},
        {"NAME",
         [](const Spot&, const std::string& begun) {
             Names names = functionNames(begun);
             const Names others = entryNames(begun);
             names.insert(names.end(), others.begin(), others.end());
             return names;
         }},
        {"PATTERN",
         [](const Spot&, const std::string& begun) {
             Names names = moduleNames();
             const Names functions = functionNames(begun);
             const Names others = entryNames(begun);
             names.insert(names.end(), functions.begin(), functions.end());
             names.insert(names.end(), others.begin(), others.end());
             return names;
         }},
        {"PROGRAM", pathNames},
        {"REQUEST", [](const Spot&, const std::string&) { return wire::RequestPattern::names(); }},
        {"REQUEST|EVENT",
         [](const Spot& spot, const std::string&) {
             Names names = wire::RequestPattern::names();
             const Names events = eventNames(eventFileOf(spot));
             names.insert(names.end(), events.begin(), events.end());
             return names;
         }},
        {"SETTING", [](const Spot& spot, const std::string&) { return settingNames(spot.command.name() == "set"); }},
        {"STATE", [](const Spot&, const std::string&) { return wire::stateNames(); }},
        {"VALUE", [](const Spot& spot, const std::string&) { return settingValues(spot); }},
        {"WHAT", [](const Spot& spot, const std::string& begun) { return awaitedNames(eventFileOf(spot), begun); }},
        {"WHEN",
         [](const Spot&, const std::string&) {
             return Names{"always", "auto", "never"};
         }},
    };
    return all;
}

Names namesFor(const Operand& operand, const Spot& spot, const std::string& begun) {
    const auto source = sources().find(operand.form);
    return source == sources().end() ? Names() : source->second(spot, begun);
}

/** For `--option=value`, whose value is begun; none for any other word. */
std::optional<Names> joinedValues(const Spot& spot, const std::string& begun) {
    const std::size_t equals = begun.find('=');
    if (spot.option || spot.onlyArguments || !isOption(begun + ' ') || equals == std::string::npos) {
        return std::nullopt;
    }
    const std::string option = begun.substr(0, equals + 1);
    const std::optional<Operand> operand = spot.command.optionNamed(begun.substr(0, equals));
    Names words;
    for (const std::string& name : operand ? namesFor(*operand, spot, begun.substr(equals + 1)) : Names()) {
        words.push_back(option + name);
    }
    return words;
}

Names candidatesAt(const Spot& spot, const std::string& begun) {
    if (const auto values = joinedValues(spot, begun)) {
        return *values;
    }
    if (!spot.option && !spot.onlyArguments && isOption(begun + ' ')) {
        return spot.command.optionNames();
    }
    if (!spot.option && begins(begun, "@")) {
        Names files = pathsBeginningWith(begun.substr(1));
        std::transform(files.begin(), files.end(), files.begin(), [](const std::string& file) { return '@' + file; });
        return files;
    }
    if (!spot.option && spot.arguments.empty() && !spot.command.namesBelow().empty()) {
        return spot.command.namesBelow();
    }
    const std::optional<Operand> operand = spot.option ? spot.option : positionalOf(spot);
    return operand ? namesFor(*operand, spot, begun) : Names();
}

} // namespace

std::vector<std::string> completionsOf(const Command& program, const std::vector<std::string>& words,
                                       const std::string& begun) {
    Spot spot{program, std::nullopt, {}, false, {}, ""};
    for (const std::string& word : words) {
        step(spot, word);
    }
    return narrowed(candidatesAt(spot, begun), begun);
}

void completeAs(const std::string& form, const WordSource& source) {
    sources()[form] = [source](const Spot& spot, const std::string& begun) { return source(spot.arguments, begun); };
}

std::vector<std::string> narrowed(std::vector<std::string> names, const std::string& begun) {
    names.erase(
        std::remove_if(names.begin(), names.end(), [&begun](const std::string& name) { return !begins(name, begun); }),
        names.end());
    sortOut(names);
    return names;
}

} // namespace kelutv::tool
