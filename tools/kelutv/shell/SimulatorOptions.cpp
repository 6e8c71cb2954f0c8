#include "tools/kelutv/shell/SimulatorOptions.h"

#include "tools/kelutv/shell/PathCompletion.h"
#include "tools/process/Spawn.h"
#include "wire/text/RequestPattern.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <map>
#include <sstream>
#include <system_error>

namespace kelutv::tool {

namespace {

using Names = std::vector<std::string>;

/** What the help of a program says of its options: what each takes, and the names of what comes with the program. */
struct Help {
    std::map<std::string, std::string> options;
    Names names;
};

std::string readAll(int descriptor) {
    std::string text;
    std::array<char, 4096> piece{};
    for (ssize_t count = 0; (count = ::read(descriptor, piece.data(), piece.size())) > 0;) {
        text.append(piece.data(), static_cast<std::size_t>(count));
    }
    return text;
}

/** What the program prints, if it can be started. */
std::string outputOf(const Names& words) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        return "";
    }
    std::string text;
    try {
        const pid_t child = process::spawn({words, {}, {}, {{STDOUT_FILENO, ends[1]}}, {}, {}});
        ::close(ends[1]);
        text = readAll(ends[0]);
        ::waitpid(child, nullptr, 0);
    } catch (const std::system_error&) {
        ::close(ends[1]);
    }
    ::close(ends[0]);
    return text;
}

/** Lines of options begin with two blanks and the option; `Scenarios:` leads a line of names. */
Help helpOf(const std::string& program) {
    Help help;
    std::istringstream text(outputOf({program, "--help"}));
    for (std::string line; std::getline(text, line);) {
        std::istringstream words(line);
        std::string word;
        std::string form;
        words >> word;
        if (word == "Scenarios:") {
            while (words >> word) {
                help.names.push_back(word);
            }
        } else if (const std::size_t option = word.find("--");
                   option != std::string::npos && line.rfind("  ", 0) == 0) {
            words >> form;
            const bool isForm = std::all_of(form.begin(), form.end(), [](char letter) {
                return letter == '|' || (letter >= 'A' && letter <= 'Z');
            });
            help.options[word.substr(option)] = isForm ? form : "";
        }
    }
    return help;
}

} // namespace

std::vector<std::string> simulatorOptions(const std::string& program, const std::vector<std::string>& words,
                                          const std::string& begun) {
    const Help help = helpOf(program);
    const auto option = words.empty() ? help.options.end() : help.options.find(words.back());
    const std::string form = option != help.options.end() ? option->second : "";
    if (form.empty()) {
        Names names;
        for (const auto& each : help.options) {
            names.push_back(each.first);
        }
        return names;
    }
    Names names = form.find("FILE") != std::string::npos ? pathsBeginningWith(begun) : Names();
    if (form.find("NAME") != std::string::npos) {
        names.insert(names.end(), help.names.begin(), help.names.end());
    }
    if (form == "LINE") {
        names = wire::RequestPattern::names();
    }
    return names;
}

} // namespace kelutv::tool
