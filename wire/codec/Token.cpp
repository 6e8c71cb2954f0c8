#include "wire/codec/Token.h"

namespace kelutv::wire {

namespace {

constexpr char16_t kInterface[] = u"android.ITVBaseService";
/** The strict-mode word, the work source and the header word. */
constexpr std::size_t kMostWordsBefore = 3;

} // namespace

bool readToken(ByteReader& bytes) {
    const std::size_t start = bytes.position();
    for (std::size_t words = 0; words <= kMostWordsBefore; ++words) {
        bytes.moveTo(start + words * sizeof(std::int32_t));
        if (bytes.readText16() == kInterface) {
            return true;
        }
    }
    bytes.moveTo(start);
    return false;
}

} // namespace kelutv::wire
