#include "simulator/television/StateFile.h"

#include "simulator/files/File.h"
#include "simulator/television/Snapshot.h"

#include <nlohmann/json.hpp>

#include <unistd.h>

#include <cerrno>
#include <stdexcept>

namespace kelutv::simulator {

StateFile::StateFile(const std::string& path) : mPath(path.empty() ? path : resolvedPath(path)) {}

void StateFile::restore(Equipment& equipment) {
    if (mPath.empty()) {
        return;
    }
    if (::access(mPath.c_str(), F_OK) != 0 && errno == ENOENT) {
        write(equipment);
        return;
    }
    const nlohmann::json content = parseJson(readRegularFile(mPath), mPath);
    restoreSnapshot(equipment, JsonNode(content, mPath));
}

void StateFile::keep(const Equipment& equipment) {
    if (!mPath.empty() && equipment.revision.number() != mWritten) {
        mWritten = equipment.revision.number();
        write(equipment);
    }
}

void StateFile::write(const Equipment& equipment) const {
    replaceFile(mPath, snapshotOf(equipment), Outlives::Process);
}

} // namespace kelutv::simulator
