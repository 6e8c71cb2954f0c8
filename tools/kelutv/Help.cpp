#include "Help.h"

#include <cstddef>
#include <sstream>

namespace kelutv::tool {

namespace {

constexpr std::size_t kColumn = 34;

std::string trimmed(const std::string& text) {
    constexpr char kBlank[] = " \t\n";
    const std::size_t begin = text.find_first_not_of(kBlank);
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(kBlank) - begin + 1);
}

std::string indented(const std::string& lines) {
    std::istringstream source(lines);
    std::string text;
    for (std::string line; std::getline(source, line);) {
        text += line.empty() ? "\n" : "  " + trimmed(line) + '\n';
    }
    return text;
}

} // namespace

Description::Description(const std::string& text) {
    const std::size_t marker = text.find("\n\nExample");
    if (marker != std::string::npos) {
        examples = trimmed(text.substr(text.find(':', marker) + 1));
    }
    const std::string explanation = trimmed(text.substr(0, marker));
    const std::size_t end = explanation.find('\n');
    brief = explanation.substr(0, end);
    if (end != std::string::npos) {
        details = trimmed(explanation.substr(end));
    }
}

HelpFormatter::HelpFormatter() { column_width(kColumn); }

std::string HelpFormatter::make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const {
    const Description description(app->get_description());
    std::string text;
    if (!description.examples.empty()) {
        text += "Examples:\n" + indented(description.examples) + '\n';
    }
    text += make_usage(app, std::move(name)) + '\n' + description.brief + '\n';
    text += description.details.empty() ? "" : description.details + '\n';
    text += make_positionals(app) + make_groups(app, mode) + make_subcommands(app, mode);
    const std::string footer = make_footer(app);
    return text + (footer.empty() ? "" : '\n' + footer);
}

std::string HelpFormatter::make_subcommand(const CLI::App* command) const {
    std::ostringstream line;
    CLI::detail::format_help(line, command->get_name(), Description(command->get_description()).brief, kColumn);
    return line.str();
}

std::string HelpFormatter::make_option_opts(const CLI::Option* option) const {
    if (option->get_positional() || option->get_type_size() == 0) {
        return "";
    }
    const std::string& text = option->get_option_text();
    return ' ' + (text.empty() ? option->get_type_name() : text);
}

} // namespace kelutv::tool
