#pragma once

#include "tools/kelutv/checks/Finding.h"

namespace kelutv::tool {

/** The name of the interface of a TV base service. */
constexpr char kServiceDescriptor[] = "android.ITVBaseService";

/**
 * Connects, and says whether requests go through the kernel's driver: the first look that connects, which is to take no
 * longer than an answer. @throws LinkError when there is no service
 */
Finding lookForTransport();

/** Asks the service for the name of its interface. @throws LinkError when it ends */
Finding lookAtDescriptor();

} // namespace kelutv::tool
