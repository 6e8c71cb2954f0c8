#pragma once

#include "torture/operations/Operation.h"

namespace kelutv::test {

/** One operation of every shape: each way to build a request, and each way to read a reply. */
std::vector<Operation> everyShape();

/** The parts of `everyShape`: those that change the television, that read numbers and records, lists, and texts. */
std::vector<Operation> setOperations();
std::vector<Operation> numberOperations();
std::vector<Operation> listOperations();
std::vector<Operation> textOperations();

} // namespace kelutv::test
