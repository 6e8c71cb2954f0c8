#pragma once

namespace kelutv::python {

/** Queue what comes in; they run on whatever thread delivers it. */
void takeEvent(int event, void* payload, unsigned int length, void* previous);
void takeVbiData(unsigned int type, void* data, unsigned int length);

} // namespace kelutv::python
