#include "torture/starvation/Starvation.h"

#include "torture/starvation/Refusal.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdlib>

namespace kelutv::starvation {

namespace {

std::atomic<Page*> gPage{nullptr};

__attribute__((constructor)) void takePageOfEnvironment() {
    const char* const path = std::getenv(kPageVariable);
    const int file = path != nullptr ? ::open(path, O_RDWR | O_CLOEXEC) : -1;
    if (file < 0) {
        return;
    }
    void* const place = ::mmap(nullptr, sizeof(Page), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    ::close(file);
    if (place != MAP_FAILED) {
        usePage(static_cast<Page*>(place));
    }
}

bool concerns(const Page& page, Resource resource) {
    if (!page.armed || page.resource != resource) {
        return false;
    }
    const pid_t process = page.process;
    const pid_t thread = page.thread;
    return (process == 0 || process == ::getpid()) && (thread == 0 || thread == ::gettid());
}

/** What fills a process's table of descriptors. */
class FullTable {
public:
    /** Takes every descriptor up to the highest in use, and sets the limit there: one can be had for each that closes.
     */
    void fill() {
        ::getrlimit(RLIMIT_NOFILE, &mBefore);
        setLimit(highestInUse() + 1);
        for (long filler = 0; mCount < mFillers.size(); ++mCount) {
            filler = ::syscall(SYS_openat, AT_FDCWD, "/dev/null", O_RDONLY | O_CLOEXEC);
            if (filler < 0) {
                break;
            }
            mFillers[mCount] = filler;
        }
        mFull = true;
    }

    void empty() {
        if (mFull.exchange(false)) {
            setLimit(mBefore.rlim_cur);
            while (mCount > 0) {
                ::syscall(SYS_close, mFillers[--mCount]);
            }
        }
    }

private:
    static constexpr rlim_t kHighest = 1023;

    void setLimit(rlim_t number) const {
        const rlimit limit{number, mBefore.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &limit);
    }

    static rlim_t highestInUse() {
        rlim_t highest = kHighest;
        while (highest > 0 && ::syscall(SYS_fcntl, highest, F_GETFD) < 0) {
            --highest;
        }
        return highest;
    }

    rlimit mBefore{};
    std::array<long, kHighest + 1> mFillers{};
    std::size_t mCount = 0;
    std::atomic<bool> mFull{false};
};

FullTable gTable;

} // namespace

void usePage(Page* page) { gPage = page; }

bool refused(Resource resource) {
    Page* const page = gPage.load(std::memory_order_acquire);
    if (page == nullptr) {
        return false;
    }
    if (!page->armed) {
        gTable.empty();
    }
    if (!concerns(*page, resource)) {
        return false;
    }
    const long number = page->seen.fetch_add(1) + 1;
    const long nth = page->nth;
    if (resource == kDescriptor && page->lasting) {
        if (number == nth) {
            gTable.fill();
        }
        return false;
    }
    return nth != 0 && (number == nth || (number > nth && page->lasting));
}

} // namespace kelutv::starvation
