#pragma once

#include <sys/mman.h>

#include <new>
#include <system_error>

namespace kelutv::test {

/** An object in memory that the processes forked after its making share. What it holds must not need a destructor. */
template <typename T> class Shared {
public:
    Shared() {
        void* const place = ::mmap(nullptr, sizeof(T), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (place == MAP_FAILED) {
            throw std::system_error(errno, std::generic_category(), "mmap");
        }
        mObject = new (place) T;
    }
    ~Shared() { ::munmap(mObject, sizeof(T)); }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;

    T& operator*() const { return *mObject; }
    T* operator->() const { return mObject; }

    /** Puts the object back to how it was made. */
    void renew() { new (mObject) T; }

private:
    T* mObject;
};

} // namespace kelutv::test
