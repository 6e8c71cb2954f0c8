#pragma once

#include "simulator/files/OwnFile.h"
#include "simulator/television/Equipment.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kelutv::simulator {

/**
 * Where the state of the television outlives the process: settings, sources with their signals, CEC devices, power
 * state.
 *
 * The file is JSON text, replaced as a whole: however the process ends, it has the content before or after a change.
 */
class StateFile {
public:
    /**
     * @param path empty for no file: nothing is restored and nothing kept
     * @throws std::runtime_error when another process keeps its state there
     */
    explicit StateFile(const std::string& path);

    /**
     * Loads the file into the equipment; creates it if missing.
     * @throws ConfigurationError when the file holds something else; it is left as it is then
     * @throws std::runtime_error when it cannot be created
     */
    void restore(Equipment& equipment);

    /**
     * Writes the file when something changed since it was written.
     * @throws std::runtime_error when that fails; the file keeps its content
     */
    void keep(const Equipment& equipment);

private:
    void write(const Equipment& equipment);

    std::optional<OwnFile> mFile;
    std::uint64_t mWritten = 0;
};

} // namespace kelutv::simulator
