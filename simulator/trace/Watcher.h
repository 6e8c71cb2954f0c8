#pragma once

#include "simulator/faults/FaultRule.h"
#include "simulator/television/Notice.h"
#include "simulator/television/Television.h"
#include "wire/codec/Reply.h"
#include "wire/codec/Request.h"

#include <sys/types.h>

namespace kelutv::simulator {

/** A request that has been carried out. */
struct Served {
    pid_t caller;
    const wire::Request& request;
    const wire::Reply& reply;
};

/**
 * Follows what happens to the television. It is told of one thing at a time, in the order in which they happen, before
 * the caller has its answer; it must not call the service.
 */
class Watcher {
public:
    Watcher() = default;
    virtual ~Watcher() = default;
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    virtual void served(const Served&) {}
    virtual void published(const Notice&) {}
    /** A request meets a fault; it has not been carried out yet. */
    virtual void faulted(pid_t, const wire::Request&, const FaultRule&) {}
    /** A request or a control line is done with, and this is what the television has come to. */
    virtual void settled(const Television&) {}
    /** The process is about to end by a fault, with nothing behind it carried out. */
    virtual void ending() {}
};

} // namespace kelutv::simulator
