#pragma once

#include "tools/kelutv/compliance/framework/Terms.h"
#include "tools/kelutv/snapshot/Restoring.h"
#include "tools/kelutv/snapshot/Snapshot.h"

#include <string>
#include <vector>

namespace kelutv::tool::compliance {

/**
 * The values that a television had before checks changed any, in a file until they are put back. The file has the form
 * of a snapshot.
 */
class Journal {
public:
    /**
     * Writes the file and waits until the disk has it.
     *
     * @throws ToolError when it cannot be written
     */
    Journal(std::string path, Snapshot snapshot);

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
};

/** @throws UsageError when there is such a file, which an earlier run has left */
void requireNoJournal(const std::string& path);

/** Of a snapshot what checks may change: what can be put back, by a dangerous function only where that may be called.
 */
Snapshot changeable(Snapshot snapshot, const Terms& terms);

} // namespace kelutv::tool::compliance
