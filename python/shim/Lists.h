#pragma once

#include <kelutv/hdmicec_types.h>

#include <list>
#include <string>
#include <vector>

namespace kelutv::python {

/** Keeps a list for the thread until its next one. */
void keepList(const std::list<std::string>& texts);
/** The same of devices, five texts each in the order of the record. */
void keepList(const std::vector<KELU_TV_CEC_DEVICE_INFO_SORTED_S>& devices);

} // namespace kelutv::python
