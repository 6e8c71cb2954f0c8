#pragma once

#include "simulator/configuration/Configuration.h"
#include "simulator/faults/Faults.h"
#include "simulator/state/Revision.h"
#include "simulator/state/State.h"
#include "simulator/television/CecBus.h"
#include "simulator/television/EepStore.h"
#include "simulator/television/Power.h"
#include "simulator/television/PublishedEvent.h"
#include "simulator/television/Sources.h"
#include "simulator/television/Teletext.h"

#include <utility>

namespace kelutv::simulator {

/** What the television is made of. Not synchronised. */
struct Equipment {
    Equipment(Configuration chosen, EepStore store) : configuration(std::move(chosen)), eep(std::move(store)) {}
    Equipment(const Equipment&) = delete;
    Equipment& operator=(const Equipment&) = delete;

    const Configuration configuration;
    /** Of all that a state file keeps. */
    Revision revision;
    State state{configuration, revision};
    EepStore eep;
    Faults faults;
    /** The events of the parts below that are still to be published. */
    PublishedEvents events;
    Sources sources{configuration, state, events, revision};
    CecBus cec{configuration, events, revision};
    Teletext teletext{events};
    Power power{events, revision};
};

} // namespace kelutv::simulator
