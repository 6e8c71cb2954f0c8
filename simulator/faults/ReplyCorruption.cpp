#include "simulator/faults/ReplyCorruption.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace kelutv::simulator {

namespace {

constexpr std::size_t kWord = sizeof(std::int32_t);
/** Filler for bytes without a meaning: neither zero nor the end of a text. */
constexpr char kFiller = 'Z';

/** Whether the first word after the result is the number of values. */
bool leadsWithCount(const wire::Request& request) {
    if (request.operation == nullptr || request.operation->reply.size() == 0) {
        return false;
    }
    const wire::ReplyField& first = request.operation->reply[0];
    return first.count == wire::kCountOfRest || (request.command->hasItems && first.encoding == wire::Encoding::Ints);
}

void putCount(std::string& bytes, std::int32_t count) {
    if (bytes.size() >= 2 * kWord) {
        std::memcpy(bytes.data() + kWord, &count, kWord);
    }
}

/** The text that ends the reply; null when something else does. */
const std::string* lastText(const wire::Reply& reply) {
    const bool isEmpty = reply.fields.empty() || reply.fields.back().empty();
    return isEmpty ? nullptr : std::get_if<std::string>(&reply.fields.back().back());
}

/** Takes terminator and padding off the text that ends the reply, which keeps its size. */
void openText(std::string& bytes, const std::string& text) {
    const std::size_t length = std::strlen(text.c_str());
    const std::size_t behind = kWord - length % kWord;
    if (bytes.size() >= kWord + length + behind) {
        std::fill(bytes.end() - static_cast<std::ptrdiff_t>(behind), bytes.end(), kFiller);
    }
}

void change(std::string& bytes, const Effect& effect, const wire::Request& request, const wire::Reply& reply) {
    const auto amount = static_cast<std::size_t>(effect.amount);
    if (effect.kind == Effect::Kind::Short) {
        bytes.resize(std::min(bytes.size(), amount));
    } else if (effect.kind == Effect::Kind::Long) {
        bytes.append(amount, kFiller);
    } else if (effect.kind == Effect::Kind::Count && leadsWithCount(request)) {
        putCount(bytes, effect.amount);
    } else if (const std::string* const text = lastText(reply);
               effect.kind == Effect::Kind::Unterminated && text != nullptr) {
        openText(bytes, *text);
    }
}

} // namespace

void corrupt(const Effect& effect, const wire::Request& request, const wire::Reply& reply, android::Parcel& parcel) {
    std::string bytes(reinterpret_cast<const char*>(parcel.data()), parcel.dataSize());
    change(bytes, effect, request, reply);
    parcel.setData(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
}

} // namespace kelutv::simulator
