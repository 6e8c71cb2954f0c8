#include "tools/kelutv/newservice/Project.h"

#include "tools/kelutv/newservice/Templates.h"
#include "wire/Interface.h"

#include <set>

namespace kelutv::tool {

namespace {

/** The version of the installed files that a project asks for: that of the interface. */
constexpr char kNeededVersion[] = "1.0";

std::string forEach(const std::vector<std::string>& modules, const std::string& line) {
    std::string text;
    for (const std::string& module : modules) {
        text += filled(line, "module", module);
    }
    return text;
}

std::string withoutLineEnd(std::string text) {
    text.pop_back();
    return text;
}

} // namespace

std::vector<std::string> modulesWithCommands() {
    std::set<std::string> modules;
    for (const wire::Command& command : wire::allCommands()) {
        modules.insert(command.module);
    }
    return {modules.begin(), modules.end()};
}

std::vector<ProjectFile> filesOf(const Project& project) {
    const auto& modules = project.modules;
    const std::string build = filled(kBuildTemplate, "version", kNeededVersion);
    const std::string declared = "kelutv::service::Reply {{module}}(const kelutv::service::Request& request, "
                                 "kelutv::service::Events& events);\n";
    std::vector<ProjectFile> files{
        {"README.md", filled(kReadmeTemplate, "modules", forEach(modules, "- `{{module}}`: `{{module}}.cpp`\n"))},
        {"CMakeLists.txt", filled(build, "sources", withoutLineEnd(forEach(modules, "    {{module}}.cpp\n")))},
        {"main.cpp",
         filled(kMainTemplate, "handled", forEach(modules, "        service.handle(\"{{module}}\", {{module}});\n"))},
        {"handlers.h", filled(kHandlersTemplate, "declared", withoutLineEnd(forEach(modules, declared)))}};
    for (const std::string& module : modules) {
        files.push_back({module + ".cpp", filled(kModuleTemplate, "module", module)});
    }
    files.push_back({project.program + ".service.in", kUnitTemplate});
    for (ProjectFile& file : files) {
        file.text = filled(std::move(file.text), "program", project.program);
    }
    return files;
}

} // namespace kelutv::tool
