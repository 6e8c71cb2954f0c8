#pragma once

#include "recording/Line.h"

namespace kelutv::recording {

/** The interface token as the platform of this process writes it. */
Bytes tokenOfPlatform();

/** The order of the bytes of this machine. */
bool isLittleEndian();

/** Whether the bytes of a section are in that order, so that they can be read here. */
bool isInOwnOrder(const Header& header);

} // namespace kelutv::recording
