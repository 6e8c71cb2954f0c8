#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace kelutv::wire {

/**
 * Which names are meant: `*` stands for any characters, `?` for one, `[a-c]` and `[!a-c]` for one of several; without
 * any of them a text is a piece of the names that are meant. In any case of letters. A text that is longer than
 * `kLongest` means no name.
 */
class Pattern {
public:
    static constexpr std::size_t kLongest = 1024;

    explicit Pattern(const std::string& text);

    /** The same, except that a text which is one of these names in full means that name only. */
    Pattern(const std::string& text, const std::vector<std::string>& names);

    bool matches(const std::string& name) const;
    bool matchesAny(const std::vector<std::string>& names) const;

private:
    std::string mText;
};

} // namespace kelutv::wire
