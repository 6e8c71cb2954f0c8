#include "Subcommand.h"

#include <CLI/CLI.hpp>

namespace kelutv::tool {

namespace {

constexpr char kGuard = '\x1f';

bool hasBrackets(const std::string& word) { return word.size() > 1 && word.front() == '[' && word.back() == ']'; }

CLI::Option* addWords(CLI::App& app, const char* name, std::vector<std::string>& values, const char* help) {
    return app.add_option(name, values, help)->transform(unguarded, "");
}

} // namespace

Subcommand::Subcommand(CLI::App& above, const char* name, const std::string& description)
    : mApp(above.add_subcommand(name, description)) {}

Subcommand::Subcommand(const Subcommand& above, const char* name, const std::string& description)
    : Subcommand(*above.mApp, name, description) {}

void Subcommand::flag(const char* names, bool& value, const char* help) const { mApp->add_flag(names, value, help); }

void Subcommand::option(const char* names, std::string& value, const char* form, const char* help) const {
    mApp->add_option(names, value, help)->option_text(form);
}

void Subcommand::option(const char* names, std::size_t& value, const char* form, const char* help) const {
    mApp->add_option(names, value, help)->option_text(form);
}

void Subcommand::option(const char* names, double& value, const char* form, const char* help) const {
    mApp->add_option(names, value, help)->option_text(form)->check(CLI::PositiveNumber);
}

void Subcommand::option(const char* names, std::vector<std::string>& values, const char* form, const char* help) const {
    mApp->add_option(names, values, help)->option_text(form)->allow_extra_args(false);
}

bool Subcommand::isGiven(const char* option) const { return mApp->count(option) > 0; }

void Subcommand::optional(const char* name, std::string& value, const char* help) const {
    mApp->add_option(name, value, help);
}

void Subcommand::required(const char* name, std::string& value, const char* help) const {
    mApp->add_option(name, value, help)->required();
}

void Subcommand::words(const char* name, std::vector<std::string>& values, const char* help) const {
    addWords(*mApp, name, values, help);
}

void Subcommand::requiredWords(const char* name, std::vector<std::string>& values, const char* help) const {
    addWords(*mApp, name, values, help)->required();
}

void Subcommand::footer(const std::string& text) const { mApp->footer(text); }

void Subcommand::hide() const { mApp->group(""); }

void Subcommand::requireSubcommand() const { mApp->require_subcommand(1); }

void Subcommand::action(const std::function<void()>& act) const { mApp->callback(act); }

void guardBrackets(std::vector<std::string>& words) {
    for (std::string& word : words) {
        if (hasBrackets(word)) {
            word.insert(word.begin(), kGuard);
        }
    }
}

std::string unguarded(std::string word) { return !word.empty() && word.front() == kGuard ? word.substr(1) : word; }

} // namespace kelutv::tool
