#pragma once

namespace kelutv::bench {

/**
 * Serves TVBaseService until the process is killed: answers each shape's command with 0 and what the shape says, and
 * refuses any other. Says "ready" on standard output as soon as it can be found. Returns only when it cannot be found.
 */
int serveShapes();

} // namespace kelutv::bench
