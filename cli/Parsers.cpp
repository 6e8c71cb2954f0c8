// All that includes the headers of the option parser, which take as long to compile as ten other sources.
#include "cli/CommandParser.h"
#include "cli/Help.h"
#include "cli/OptionParser.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace kelutv::cli {

namespace {

constexpr std::size_t kHelpColumn = 34;
constexpr char kGuard = '\x1f';

/** The parser would take words in brackets apart, and fractions such as `-.5` for options. */
bool needsGuard(const std::string& word) {
    const bool isInBrackets = word.size() > 1 && word.front() == '[' && word.back() == ']';
    const bool isFraction = word.size() > 2 && word.compare(0, 2, "-.") == 0 && word[2] >= '0' && word[2] <= '9';
    return isInBrackets || isFraction || (!word.empty() && word.front() == kGuard);
}

/**
 * Makes words safe from the parser. Behind `--` these are all: the parser forgets it where a command has its least
 * number of words already.
 */
void guardWords(std::vector<std::string>& words) {
    const auto dashes = std::find(words.begin(), words.end(), "--");
    const auto behind = dashes == words.end() ? dashes : words.erase(dashes);
    for (auto word = words.begin(); word != words.end(); ++word) {
        if (word >= behind || needsGuard(*word)) {
            word->insert(word->begin(), kGuard);
        }
    }
}

std::string unguarded(std::string word) { return !word.empty() && word.front() == kGuard ? word.substr(1) : word; }

void unguardValues(CLI::App& app) {
    for (CLI::Option* const option : app.get_options()) {
        option->transform(unguarded, "");
    }
    for (CLI::App* const below : app.get_subcommands([](const CLI::App*) { return true; })) {
        unguardValues(*below);
    }
}

std::size_t mostWordsOf(const CLI::Option& option) {
    return static_cast<std::size_t>(std::max(option.get_items_expected_max(), 0));
}

/** What is wrong with the command line of a program that takes options alone. */
std::string complaintOf(const CLI::App& app, const CLI::Error& error) {
    const std::vector<std::string> rest = app.remaining();
    if (error.get_exit_code() != static_cast<int>(CLI::ExitCodes::ExtrasError) || rest.empty()) {
        return error.what();
    }
    const bool isOption = rest.front().size() > 1 && rest.front().front() == '-';
    return (isOption ? "unknown option '" : "unexpected argument '") + rest.front() + '\'';
}

/** Help with the examples first. */
class HelpFormatter : public CLI::Formatter {
public:
    HelpFormatter() { column_width(kHelpColumn); }

    std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override {
        const Description description(app->get_description());
        std::string text =
            description.beginning() + make_usage(app, std::move(name)) + '\n' + description.explanation();
        text += make_positionals(app) + make_groups(app, mode) + make_subcommands(app, mode);
        const std::string footer = make_footer(app);
        return text + (footer.empty() ? "" : '\n' + footer);
    }

    std::string make_subcommand(const CLI::App* command) const override {
        std::ostringstream line;
        CLI::detail::format_help(line, command->get_name(), Description(command->get_description()).brief, kHelpColumn);
        return line.str();
    }

    std::string make_option_opts(const CLI::Option* option) const override {
        if (option->get_positional() || option->get_type_size() == 0) {
            return "";
        }
        const std::string& text = option->get_option_text();
        return ' ' + (text.empty() ? option->get_type_name() : text);
    }
};

} // namespace

std::string Command::name() const { return mApp->get_name(); }

std::string Command::path() const {
    const auto parent = above();
    return parent ? parent->path() + ' ' + name() : name();
}

std::string Command::help() const { return mApp->get_formatter()->make_help(mApp, path(), CLI::AppFormatMode::Normal); }

std::optional<Command> Command::above() const {
    CLI::App* const parent = mApp->get_parent();
    return parent == nullptr ? std::nullopt : std::optional(Command(*parent));
}

std::optional<Command> Command::below(const std::string& name) const {
    const auto found = mApp->get_subcommands([&name](const CLI::App* each) { return each->get_name() == name; });
    return found.empty() ? std::nullopt : std::optional(Command(*found.front()));
}

std::vector<std::string> Command::namesBelow() const {
    std::vector<std::string> names;
    for (const CLI::App* const command : mApp->get_subcommands([](const CLI::App*) { return true; })) {
        if (!command->get_group().empty()) {
            names.push_back(command->get_name());
        }
    }
    return names;
}

std::vector<std::string> Command::optionNames() const {
    std::vector<std::string> names;
    for (const CLI::App* app = mApp; app != nullptr; app = app->get_parent()) {
        for (const CLI::Option* const option : app->get_options()) {
            for (const std::string& name : option->get_lnames()) {
                names.push_back("--" + name);
            }
        }
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

std::optional<Operand> Command::optionNamed(const std::string& name) const {
    for (const CLI::App* app = mApp; app != nullptr; app = app->get_parent()) {
        if (const CLI::Option* const option = app->get_option_no_throw(name)) {
            return Operand{option->get_option_text(), mostWordsOf(*option)};
        }
    }
    return std::nullopt;
}

std::vector<Operand> Command::positionals() const {
    std::vector<Operand> operands;
    for (const CLI::Option* const option : mApp->get_options()) {
        if (option->get_positional()) {
            operands.push_back({option->get_name(true), std::max<std::size_t>(mostWordsOf(*option), 1)});
        }
    }
    return operands;
}

Subcommand::Subcommand(const Command& above, const char* name, const std::string& description) : Command(above) {
    mApp = mApp->add_subcommand(name, description);
}

void Subcommand::flag(const char* names, bool& value, const char* help) const { mApp->add_flag(names, value, help); }

void Subcommand::option(const char* names, std::string& value, const char* form, const char* help) const {
    mApp->add_option(names, value, help)->option_text(form);
}

void Subcommand::option(const char* names, std::size_t& value, const char* form, const char* help) const {
    mApp->add_option(names, value, help)->option_text(form);
}

void Subcommand::option(const char* names, double& value, double least, double most, const char* form,
                        const char* help) const {
    mApp->add_option(names, value, help)->option_text(form)->check(CLI::Range(least, most));
}

void Subcommand::option(const char* names, std::vector<std::uint32_t>& values, std::uint32_t most, const char* form,
                        const char* help) const {
    mApp->add_option(names, values, help)->option_text(form)->check(CLI::Range(most));
}

void Subcommand::option(const char* names, std::vector<std::string>& values, const char* form, const char* help) const {
    mApp->add_option(names, values, help)->option_text(form)->allow_extra_args(false);
}

void Subcommand::option(const char* names, const std::function<void(const std::string&)>& take, const char* form,
                        const char* help) const {
    mApp->add_option_function<std::string>(names, take, help)->option_text(form);
}

bool Subcommand::isGiven(const char* option) const { return mApp->count(option) > 0; }

void Subcommand::environment(const char* option, const char* variable) const {
    mApp->get_option(option)->envname(variable);
}

void Subcommand::needs(const char* option, const char* other) const {
    mApp->get_option(option)->needs(mApp->get_option(other));
}

void Subcommand::excludes(const char* option, const char* other) const {
    mApp->get_option(option)->excludes(mApp->get_option(other));
}

void Subcommand::optional(const char* name, std::string& value, const char* help) const {
    mApp->add_option(name, value, help);
}

void Subcommand::required(const char* name, std::string& value, const char* help) const {
    mApp->add_option(name, value, help)->required();
}

void Subcommand::words(const char* name, std::vector<std::string>& values, const char* help) const {
    mApp->add_option(name, values, help);
}

void Subcommand::requiredWords(const char* name, std::vector<std::string>& values, const char* help) const {
    mApp->add_option(name, values, help)->required();
}

void Subcommand::footer(const std::string& text) const { mApp->footer(text); }

void Subcommand::hide() const { mApp->group(""); }

void Subcommand::requireSubcommand() const { mApp->require_subcommand(1); }

void Subcommand::action(const std::function<void()>& act) const { mApp->callback(act); }

void Subcommand::beforeAction(const std::function<void()>& act) const { mApp->parse_complete_callback(act); }

OptionParser::OptionParser(const char* name, const std::string& description, const std::string& version)
    : mApp(std::make_unique<CLI::App>(description, name)), mVersion(version) {
    mApp->formatter(std::make_shared<HelpFormatter>());
}

OptionParser::~OptionParser() = default;

Subcommand OptionParser::program() const { return Subcommand(Command(*mApp)); }

std::optional<int> OptionParser::parse(int argc, const char* const* argv,
                                       const std::function<std::string(const std::string&)>& shown) const {
    mApp->set_version_flag("--version", mVersion); // The last one in the help.
    mApp->failure_message([shown](const CLI::App* app, const CLI::Error& error) {
        const std::string name = app->get_name();
        return name + ": " + shown(complaintOf(*app, error)) + "\nTry '" + name + " --help'.\n";
    });
    try {
        mApp->parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return mApp->exit(error) == 0 ? EXIT_SUCCESS : kBadUsage;
    }
    return std::nullopt;
}

CommandParser::CommandParser(const char* name, const std::string& description, const std::string& version,
                             const std::string& footer)
    : mApp(std::make_unique<CLI::App>(description, name)) {
    mApp->set_version_flag("--version", version);
    mApp->formatter(std::make_shared<HelpFormatter>());
    mApp->footer(footer);
    mApp->require_subcommand(1);
    mApp->fallthrough();
}

CommandParser::CommandParser(CommandParser&&) noexcept = default;
CommandParser& CommandParser::operator=(CommandParser&&) noexcept = default;
CommandParser::~CommandParser() = default;

Command CommandParser::program() const { return Command(*mApp); }

Command CommandParser::named() const {
    CLI::App* command = mApp.get();
    while (!command->get_subcommands().empty()) {
        command = command->get_subcommands().front();
    }
    return Command(*command);
}

std::string CommandParser::run(std::vector<std::string> words) {
    guardWords(words);
    unguardValues(*mApp);
    std::reverse(words.begin(), words.end()); // The order in which the parser takes them.
    try {
        mApp->parse(words);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() != 0) {
            refuse(error.what(), error.get_exit_code());
        }
        std::ostringstream asked; // Help and version come this way.
        mApp->exit(error, asked, asked);
        return asked.str();
    }
    return "";
}

void CommandParser::refuse(const std::string& complaint, int why) const {
    const bool isRequirement = why == static_cast<int>(CLI::ExitCodes::RequiredError);
    if (isRequirement || why == static_cast<int>(CLI::ExitCodes::ExtrasError)) {
        const std::vector<std::string> rest = mApp->remaining(true);
        if (!rest.empty()) {
            throw UnexpectedWord(complaint, unguarded(rest.front()));
        }
        if (isRequirement && !named().namesBelow().empty()) {
            throw MissingCommand(complaint);
        }
    }
    throw Refusal(complaint);
}

} // namespace kelutv::cli
