#pragma once

#include <string>
#include <vector>

namespace kelutv::tool {

/** The modules of the catalogue that have commands, by name. */
std::vector<std::string> modulesWithCommands();

/** What a project that is to be written is called, and the modules that it has a handler for. */
struct Project {
    std::string program;
    std::vector<std::string> modules;
};

struct ProjectFile {
    /** Within the folder of the project. */
    std::string name;
    std::string text;
};

/** The files of the project, in the order in which a person may read them. */
std::vector<ProjectFile> filesOf(const Project& project);

} // namespace kelutv::tool
