#include "torture/starvation/Starvation.h"

#include "torture/starvation/Refusal.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

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
    return process == 0 || process == ::getpid();
}

} // namespace

void usePage(Page* page) { gPage = page; }

bool refused(Resource resource) {
    Page* const page = gPage.load(std::memory_order_acquire);
    if (page == nullptr || !concerns(*page, resource)) {
        return false;
    }
    const long number = page->seen.fetch_add(1) + 1;
    const long nth = page->nth;
    return nth != 0 && (number == nth || (number > nth && page->lasting));
}

} // namespace kelutv::starvation
