#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace kelutv::test {

/** A program at a terminal of its own; it is killed and reaped when the object goes. */
class Terminal {
public:
    /** @param environment "NAME=value" settings on top of the test's */
    Terminal(std::vector<std::string> arguments, const std::vector<std::string>& environment);
    ~Terminal();
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    void type(const std::string& keys) const;

    /** Waits until this stands on the terminal, behind what was waited for before. */
    bool waitFor(const std::string& part);

    /** Waits until the program takes key by key: until then the terminal would make the end of a file of a control-D.
     */
    bool waitForEditing() const;

    /** Everything that was written to the terminal so far. */
    const std::string& text() const { return mText; }

    /** The exit code; nothing when the program was ended by a signal or has not ended in time. */
    std::optional<int> exitCode();

private:
    void readMore();
    bool reap();

    int mMaster = -1;
    pid_t mPid = -1;
    std::string mText;
    std::size_t mSeen = 0;
    std::optional<int> mStatus;
};

} // namespace kelutv::test
