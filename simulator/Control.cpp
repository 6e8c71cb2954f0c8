#include "Control.h"

#include <keluem/publisher.h>

#include <charconv>
#include <sstream>
#include <vector>

namespace simulator {

namespace {

using Words = std::vector<std::string>;
using Complaint = std::optional<std::string>;

constexpr std::size_t kLongestData = keluem::kMaxPayload - sizeof(std::int32_t);

Words wordsOf(const std::string& line) {
    std::istringstream text(line);
    Words words;
    for (std::string word; text >> word;) {
        words.push_back(word);
    }
    return words;
}

template <typename Number> std::optional<Number> numberOf(const std::string& word, int base) {
    Number number{};
    const char* const end = word.data() + word.size();
    const auto read = std::from_chars(word.data(), end, number, base);
    return read.ec == std::errc() && read.ptr == end ? std::optional<Number>(number) : std::nullopt;
}

std::optional<std::string> bytesOf(const std::string& hex) {
    std::string bytes;
    for (std::size_t i = 0; i < hex.size(); i += 2) {
        const auto byte = numberOf<unsigned int>(hex.substr(i, 2), 16);
        if (!byte || i + 1 == hex.size()) {
            return std::nullopt;
        }
        bytes += static_cast<char>(*byte);
    }
    return bytes;
}

template <bool plugged> Complaint plug(Equipment& equipment, const Words& words) {
    const auto address = words.size() == 2 ? numberOf<std::int32_t>(words[1], 10) : std::nullopt;
    if (!address) {
        return words[0] + " takes the logical address of a CEC device";
    }
    if (!equipment.cec.plug(*address, plugged)) {
        return "there is no CEC device with the logical address " + words[1];
    }
    return std::nullopt;
}

Complaint sendVbi(Equipment& equipment, const Words& words) {
    const bool complete = words.size() == 2 || words.size() == 3;
    const unsigned int type = complete ? numberOf<unsigned int>(words[1], 10).value_or(0) : 0;
    const auto bytes = bytesOf(words.size() == 3 ? words[2] : "");
    if (type == 0 || type > Teletext::kLastType || !bytes) {
        return "vbi takes a type from 1 to 65535 and the data in hexadecimal";
    }
    if (bytes->size() > kLongestData) {
        return "a VBI block holds at most " + std::to_string(kLongestData) + " bytes";
    }
    if (!equipment.teletext.deliver(type, *bytes)) {
        return "VBI is not initialised, open and registered for: nobody takes the block";
    }
    return std::nullopt;
}

struct ControlCommand {
    const char* name;
    Complaint (*obey)(Equipment& equipment, const Words& words);
};

constexpr ControlCommand kControlCommands[] = {
    {"plug", plug<true>},
    {"unplug", plug<false>},
    {"vbi", sendVbi},
};

} // namespace

std::optional<std::string> obey(Equipment& equipment, const std::string& line) {
    const Words words = wordsOf(line);
    if (words.empty() || words[0][0] == '#') {
        return std::nullopt;
    }
    for (const ControlCommand& command : kControlCommands) {
        if (words[0] == command.name) {
            return command.obey(equipment, words);
        }
    }
    return "there is no control command '" + words[0] + "', only plug, unplug and vbi";
}

} // namespace simulator
