#pragma once

#include "wire/codec/ByteReader.h"

namespace kelutv::wire {

/**
 * Reads the interface token that a request begins with: "android.ITVBaseService" in one of the forms in which platforms
 * write it, alone, behind the strict-mode word, behind that and the work source, or behind these two and a header word.
 *
 * @return whether the token is of one of these forms; the reader stands behind it then, else where it was
 */
bool readToken(ByteReader& bytes);

} // namespace kelutv::wire
