#pragma once

#include "torture/operations/Operation.h"

#include <array>
#include <string>
#include <vector>

namespace kelutv::test {

/** Every command call with small arguments, and each form of argument and reply with more than a parcel holds. */
std::vector<Operation> commandCallOperations();
/** Operations that lay out a request of their own, each with more than a parcel holds. */
std::vector<Operation> requestOperations();
/** Operations that read lists, texts, items and records, and those that are composed of several reads. */
std::vector<Operation> readerOperations();

/** All of the above: each way in which an operation comes to need memory. */
std::vector<Operation> memoryOperations();

/** More bytes than a parcel holds without memory of its own. */
const char* longText();
/** 1, 2, 3 and so on. */
std::array<int, 100> hundredNumbers();
/** "1,2,3" up to `last`. */
std::string numbersUpTo(int last);

} // namespace kelutv::test
