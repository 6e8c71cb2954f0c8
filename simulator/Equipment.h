#pragma once

#include "CecBus.h"
#include "EepStore.h"
#include "Notice.h"
#include "Power.h"
#include "State.h"
#include "Teletext.h"

#include <utility>

namespace simulator {

/** What the television is made of. Not synchronised. */
struct Equipment {
    explicit Equipment(EepStore store) : eep(std::move(store)) {}
    Equipment(const Equipment&) = delete;
    Equipment& operator=(const Equipment&) = delete;

    State state;
    EepStore eep;
    /** The events of the parts below, which are still to be published. */
    Notices notices;
    CecBus cec{notices};
    Teletext teletext{notices};
    Power power{notices};
};

} // namespace simulator
