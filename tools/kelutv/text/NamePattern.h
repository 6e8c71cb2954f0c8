#pragma once

#include <string>
#include <vector>

namespace kelutv::tool {

/** A pattern with `*`, `?` and `[...]` for the names of commands and items; without any of them, a piece of the name.
 */
class NamePattern {
public:
    /** @throws UsageError when no command and no item has such a name */
    explicit NamePattern(const std::string& text);

    bool matches(const std::string& name) const;

private:
    void requireMatch(const std::string& text) const;

    std::string mPattern;
};

} // namespace kelutv::tool
