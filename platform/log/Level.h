#pragma once

namespace kqlog {

/** Tells whether a priority reaches KQLOG_LEVEL, or `fallback` when that is not set. */
bool reachesLevel(int priority, int fallback);

} // namespace kqlog
