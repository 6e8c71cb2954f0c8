#pragma once

#include <cerrno>

namespace kqlog {

/** Gives errno back the value it had. */
class ErrnoKeeper {
public:
    ErrnoKeeper() : mSaved(errno) {}
    ~ErrnoKeeper() { errno = mSaved; }
    ErrnoKeeper(const ErrnoKeeper&) = delete;
    ErrnoKeeper& operator=(const ErrnoKeeper&) = delete;

private:
    int mSaved;
};

} // namespace kqlog
