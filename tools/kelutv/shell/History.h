#pragma once

#include <string>
#include <vector>

namespace kelutv::tool {

/**
 * The lines written before, in a file that only this user may read; the newest thousand.
 *
 * A file that cannot be read or written does not end the shell: the lines are not kept.
 */
class History {
public:
    /** @param path the file; empty for none */
    explicit History(std::string path);

    /** `kelutv/history` in `$XDG_STATE_HOME`, else in `~/.local/state`; empty without a home. */
    static std::string usualPath();

    const std::vector<std::string>& lines() const { return mLines; }

    /** Adds a line, here and to the file, unless it is the last one again. */
    void add(const std::string& line);

private:
    void load();
    void rewrite() const;

    std::string mPath;
    std::vector<std::string> mLines;
};

} // namespace kelutv::tool
