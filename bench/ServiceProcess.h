#pragma once

#include <sys/types.h>

namespace kelutv::bench {

/** The bench service in a process and a runtime directory of its own, started on first use; ends with this process. */
pid_t serviceProcess();

} // namespace kelutv::bench
