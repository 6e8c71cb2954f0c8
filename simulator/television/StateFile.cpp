#include "simulator/television/StateFile.h"

#include "simulator/television/Snapshot.h"

namespace kelutv::simulator {

StateFile::StateFile(const std::string& path) {
    if (!path.empty()) {
        mFile.emplace(path);
    }
}

void StateFile::restore(Equipment& equipment) {
    if (!mFile) {
        return;
    }
    if (mFile->file() == nullptr) {
        write(equipment);
        return;
    }
    const JsonFile content(contentOf(*mFile->file()), mFile->path());
    restoreSnapshot(equipment, content.root());
}

void StateFile::keep(const Equipment& equipment) {
    if (mFile && equipment.revision.number() != mWritten) {
        write(equipment);
        mWritten = equipment.revision.number();
    }
}

void StateFile::write(const Equipment& equipment) { mFile->replace(snapshotOf(equipment), Outlives::Process); }

} // namespace kelutv::simulator
