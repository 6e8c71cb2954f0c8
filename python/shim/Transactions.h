#pragma once

#include "tools/interposition/Tap.h"

namespace kelutv::python {

/** Adds a transaction to those of this thread; the first after a summary of 0 forgets those before. */
void noteTransaction(interposition::Transaction transaction);

} // namespace kelutv::python
