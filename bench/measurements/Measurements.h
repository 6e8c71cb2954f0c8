#pragma once

#include "bench/support/Extent.h"

namespace kelutv::bench {

/** One call at a time: the library, the bare exchange of the same bytes, and the peers. */
void measureCalls(Extent extent);
/** Calls per second of 1 to 64 threads of one process. */
void measureThreads(Extent extent);
/** Calls per second of 1 to 200 processes. */
void measureClients(Extent extent);
/** A call whose reply has 4 bytes to the most that a transport carries. */
void measureReplies(Extent extent);
/** Events per second to 1 to 50 listeners, without and with a slow one beside them. */
void measureEvents(Extent extent);
/** What a client that is connected and calls nothing costs the service. */
void measureIdleClients(Extent extent);
/** How long a process takes to its first answer. */
void measureFirstAnswer(Extent extent);
/** What a call takes that is recorded, and one that is not. */
void measureRecordedCalls(Extent extent);

} // namespace kelutv::bench
