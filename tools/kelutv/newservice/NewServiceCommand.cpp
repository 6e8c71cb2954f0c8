#include "tools/kelutv/newservice/NewServiceCommand.h"

#include "tools/kelutv/newservice/Project.h"
#include "tools/kelutv/output/DataOutput.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iterator>
#include <memory>
#include <system_error>

namespace kelutv::tool {

namespace {

namespace fs = std::filesystem;

struct NewServiceOptions {
    std::string folder;
    std::string name;
    std::vector<std::string> modules;
};

std::string shownPath(const fs::path& path) { return wire::shown(path.string(), wire::kMostOfPath); }

/** CMake has targets of these names. */
bool isTargetOfCMake(const std::string& name) {
    static const char* const kNames[] = {
        "all",     "clean",          "edit_cache",    "help", "install", "list_install_components",
        "package", "package_source", "rebuild_cache", "test"};
    return std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
}

bool isLetter(char letter) { return std::isalpha(static_cast<unsigned char>(letter)) != 0; }

bool isInNames(char letter) {
    return isLetter(letter) || (letter >= '0' && letter <= '9') || letter == '-' || letter == '_';
}

std::string programOf(const NewServiceOptions& options) {
    fs::path folder = fs::absolute(options.folder).lexically_normal();
    if (!folder.has_filename()) {
        folder = folder.parent_path();
    }
    const std::string name = options.name.empty() ? folder.filename().string() : options.name;
    const std::string hint = options.name.empty() ? "; --name gives the program another one" : "";
    if (name.empty() || !isLetter(name.front()) || !std::all_of(name.begin(), name.end(), isInNames)) {
        throw UsageError("a program is called by letters, digits, '-' and '_' behind a letter, not '" +
                         wire::shown(name) + '\'' + hint);
    }
    if (isTargetOfCMake(name)) {
        throw UsageError("CMake keeps the name '" + name + "' for itself" + hint);
    }
    return name;
}

std::vector<std::string> chosenModules(const std::vector<std::string>& named) {
    const std::vector<std::string> all = modulesWithCommands();
    for (const std::string& name : named) {
        if (std::find(all.begin(), all.end(), name) == all.end()) {
            throw UsageError("unknown module '" + wire::shown(name) + "'; there are " + joined(all, ", ") +
                             wire::nearestHint(name, all));
        }
    }
    if (named.empty()) {
        return all;
    }
    std::vector<std::string> chosen;
    std::copy_if(all.begin(), all.end(), std::back_inserter(chosen), [&named](const std::string& each) {
        return std::find(named.begin(), named.end(), each) != named.end();
    });
    return chosen;
}

/** Makes the folder unless it is there, and empty. */
void makeFolder(const fs::path& folder) {
    std::error_code failure;
    fs::create_directories(folder, failure);
    if (!failure && !fs::is_empty(folder, failure) && !failure) {
        throw ToolError(Exit::Failure, shownPath(folder) + " is not empty; nothing was written");
    }
    if (failure) {
        throw ToolError(Exit::Failure, "cannot write to " + shownPath(folder) + ": " + failure.message());
    }
}

void write(const fs::path& path, const std::string& text) {
    DataOutput file(path.string());
    file.write(text);
    file.finish();
}

void run(const NewServiceOptions& options, const Output& output) {
    const Project project{programOf(options), chosenModules(options.modules)};
    const fs::path folder = options.folder;
    makeFolder(folder);
    Json written = Json::array();
    for (const ProjectFile& file : filesOf(project)) {
        const fs::path path = folder / file.name;
        write(path, file.text);
        output.line(shownPath(path));
        written.add(path.string());
    }
    output.message("kelutv: " + project.program + " refuses everything so far; " + shownPath(folder / "README.md") +
                   " says how to go on");
    output.document(
        {{"folder", options.folder}, {"program", project.program}, {"modules", project.modules}, {"files", written}});
}

} // namespace

void addNewServiceCommand(const Command& program, Context& context) {
    const auto options = std::make_shared<NewServiceOptions>();
    const Subcommand command(program, "new-service",
                             "Write a project for a service of one's own\n"
                             "A CMake project with a function for each module, which refuses everything until it is\n"
                             "filled in, and a systemd unit. Needs no service.\n\n"
                             "Examples:\n"
                             "kelutv new-service my-tv\n"
                             "kelutv new-service my-tv --module audio --module picture");
    command.required("DIR", options->folder, "The folder: a new one, or one that is empty");
    command.option("--module", options->modules, "MODULE", "Only this module; may be given again");
    command.option("--name", options->name, "WORD", "What the program is called; else as the folder");
    command.action([options, &context] { run(*options, context.output); });
}

} // namespace kelutv::tool
