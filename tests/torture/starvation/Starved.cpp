#include "torture/starvation/Starved.h"

namespace kelutv::test {

void arm(starvation::Page& page, const Starved& starved, pid_t process) {
    page.armed = false;
    page.process = process;
    page.resource = starved.resource;
    page.nth = starved.nth;
    page.lasting = starved.lasting;
    page.seen = 0;
    page.armed = true;
}

} // namespace kelutv::test
