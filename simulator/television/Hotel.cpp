#include "simulator/television/Hotel.h"

#include "simulator/files/File.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <sstream>
#include <stdexcept>
#include <utility>
#include <vector>

namespace kelutv::simulator {

namespace {

constexpr char kFirstLine[] = "kelutv hotel settings 1";
constexpr char kLastLine[] = "end";
constexpr std::size_t kLongestFile = 4096;

struct Setting {
    const char* state;
    std::size_t numbers;
};

/** In the order in which they stand in the file. */
constexpr Setting kSettings[] = {
    {"factory.hotelEnable", 1},      {"factory.hotelKeypad", 1},     {"factory.hotelSetupMenu", 1},
    {"factory.hotelMaxVolume", 1},   {"factory.hotelBootVolume", 1}, {"factory.hotelBootSrc", 1},
    {"factory.hotelBootChannel", 2},
};

/** The line of a setting in the file. */
std::string lineOf(const Setting& setting, const wire::Values& values) {
    std::string line = setting.state;
    for (std::size_t i = 0; i < setting.numbers; ++i) {
        line += ' ' + std::to_string(i < values.size() ? std::get<std::int32_t>(values[i]) : 0);
    }
    return line;
}

/** The numbers behind the name; empty unless the line is exactly as `lineOf` writes it. */
wire::Values numbersIn(const std::string& line, const Setting& setting) {
    std::istringstream text(line);
    std::string name;
    text >> name;
    wire::Values values;
    for (std::int32_t value = 0; text >> value;) {
        values.emplace_back(value);
    }
    return values.size() == setting.numbers && line == lineOf(setting, values) ? values : wire::Values{};
}

std::string contentOf(const std::string& path) {
    // Without waiting for the other end of a pipe.
    const File file(path, O_RDONLY | O_NONBLOCK);
    if (!file.isOpen()) {
        failToUse("read", path);
    }
    if (!file.isRegular() || file.size() > kLongestFile) {
        throw std::runtime_error(path + " does not hold hotel settings");
    }
    return file.read(file.size());
}

std::string nextLine(std::istringstream& text) {
    std::string line;
    std::getline(text, line);
    return line;
}

std::vector<wire::Values> settingsIn(const std::string& content, const std::string& path) {
    std::istringstream text(content);
    std::vector<wire::Values> settings;
    bool sound = nextLine(text) == kFirstLine;
    for (const Setting& setting : kSettings) {
        settings.push_back(numbersIn(nextLine(text), setting));
        sound = sound && !settings.back().empty();
    }
    if (!sound || nextLine(text) != kLastLine || text.peek() != std::char_traits<char>::eof()) {
        throw std::runtime_error(path + " does not hold exactly the hotel settings");
    }
    return settings;
}

void refuseOtherThanFile(const std::string& path) {
    const File present(path, O_RDONLY | O_NONBLOCK);
    if (present.isOpen() ? !present.isRegular() : errno != ENOENT) {
        throw std::runtime_error("cannot replace " + path + ": it is not a readable regular file");
    }
}

} // namespace

void backUpHotel(const State& state, const std::string& path) {
    const std::string target = resolvedPath(path);
    refuseOtherThanFile(target);
    std::string content = std::string(kFirstLine) + '\n';
    for (const Setting& setting : kSettings) {
        content += lineOf(setting, state.kept(*wire::findState(setting.state), {})) + '\n';
    }
    replaceFile(target, content + kLastLine + '\n');
}

void restoreHotel(State& state, const std::string& path) {
    const std::vector<wire::Values> settings = settingsIn(contentOf(path), path);
    for (std::size_t i = 0; i < settings.size(); ++i) {
        state.keep(*wire::findState(kSettings[i].state), {}, settings[i]);
    }
}

void resetHotel(State& state) {
    state.restore([](const wire::StateKey& key) {
        return std::any_of(std::begin(kSettings), std::end(kSettings),
                           [&key](const Setting& setting) { return &key == wire::findState(setting.state); });
    });
}

} // namespace kelutv::simulator
