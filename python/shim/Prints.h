#pragma once

namespace kelutv::python {

/**
 * From now on nothing that the client library prints reaches standard output, which is the program's own; the functions
 * give it what they would have given.
 */
void keepPrintsBack();

} // namespace kelutv::python
