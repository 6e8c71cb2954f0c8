#pragma once

#include "simulator/faults/FaultRule.h"
#include "simulator/television/PublishedEvent.h"
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
 * Observes the television. It is notified of one thing at a time, in the order in which they happen, before the caller
 * has its answer; it must neither call the service nor, except in `answering`, wait for anything.
 */
class Watcher {
public:
    Watcher() = default;
    virtual ~Watcher() = default;
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;

    virtual void served(const Served&) {}
    virtual void published(const PublishedEvent&) {}
    /** A request meets a fault; it has not been carried out yet. */
    virtual void faulted(pid_t, const wire::Request&, const FaultRule&) {}
    /** A request or a control line has been carried out, and this is the state of the television. */
    virtual void settled(const Television&) {}
    /** The caller of a request is about to get its answer; several threads may be there at a time. */
    virtual void answering() {}
    /** The process is about to exit because of a fault; nothing is carried out after this. */
    virtual void exiting() {}
};

} // namespace kelutv::simulator
