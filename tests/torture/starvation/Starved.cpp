#include "torture/starvation/Starved.h"

namespace kelutv::test {

void arm(starvation::Page& page, const Starved& starved, pid_t process, pid_t thread) {
    page.armed = false;
    page.process = process;
    page.thread = thread;
    page.resource = starved.resource;
    page.nth = starved.nth;
    page.lasting = starved.lasting;
    page.seen = 0;
    page.armed = true;
}

} // namespace kelutv::test
