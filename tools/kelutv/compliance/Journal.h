#pragma once

#include "tools/kelutv/compliance/framework/Terms.h"
#include "tools/kelutv/snapshot/Restoring.h"
#include "tools/kelutv/snapshot/Snapshot.h"

#include <set>
#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/**
 * The values that a television had before checks changed any, in a file until they are put back. The file has the form
 * of a snapshot, and says what it is for.
 */
class Journal {
public:
    /**
     * Makes the file, which has no values yet, so that no other run takes its name.
     *
     * @throws UsageError when there is such a file, which an earlier run has left or another one keeps, ToolError when
     * it cannot be made
     */
    explicit Journal(std::string path);
    /** Takes the file away where it has no values. */
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    /**
     * Writes the values and waits until the disk has them.
     *
     * @throws ToolError when they cannot be written
     */
    void keep(Snapshot snapshot);

    /** Names of the states whose values it keeps. */
    std::set<std::string> states() const;

    /**
     * Puts back what differs. This process must not have used the library yet.
     *
     * @return what became of the states that differed
     * @throws LinkError, ToolError as `restore` does
     */
    std::vector<Restored> putBack(double limit) const;

    /** Takes the file away. */
    void remove() const;

private:
    std::string mPath;
    Snapshot mSnapshot;
    bool mHasValues = false;
};

/**
 * What such a file has, `-` for standard input.
 *
 * @throws UsageError when it cannot be read, or was not written by a run
 */
Snapshot journalIn(const std::string& path);

/** The command line that puts back what the file has. */
std::string commandPuttingBack(const std::string& path);

/** Of a snapshot what checks may change: what can be put back, by a dangerous function only where that may be called.
 */
Snapshot changeable(Snapshot snapshot, const Terms& terms);

} // namespace kelutv::tool::compliance
