#pragma once

#include "tools/kelutv/output/Json.h"
#include "tools/kelutv/snapshot/Readings.h"

#include <string>
#include <vector>

namespace kelutv::tool {

/** A state as a television had it. */
struct HeldState {
    /** `audio.volume[speaker]`, or the operation that reads something that is no state of its own. */
    std::string state;
    /** A list. */
    Json values;
    Reading reading;
    /** The service's result word; null when there was none. */
    Json result;
    /** When it was read, in seconds since the snapshot was begun. */
    double seconds = 0;
};

/** A state that could not be read. */
struct MissingState {
    std::string state;
    std::string function;
    std::string reason;
    /** The service's result word; null when nothing was answered. */
    Json result;
};

/** Every readable state of a television, each held or missing, by the order of the catalogue. */
struct Snapshot {
    /** When it was begun: `2026-11-22T14:00:00Z`. */
    std::string taken;
    std::vector<HeldState> held;
    std::vector<MissingState> missing;
    /** What the file is for, where it is no snapshot of its own; else empty. */
    std::string purpose = {};

    std::size_t readable() const { return held.size() + missing.size(); }
};

/** The text of the file, a line for each state. */
std::string textOf(const Snapshot& snapshot);

/**
 * Reads such a text; members that it does not know are passed over.
 *
 * @param file what messages call it
 * @throws UsageError what is wrong, where, and what is allowed
 */
Snapshot snapshotOf(const std::string& text, const std::string& file);

/** That of a file, `-` for standard input. @throws UsageError as above, and when it cannot be read */
Snapshot snapshotIn(const std::string& path);

} // namespace kelutv::tool
