#include "wire/Fingerprint.h"

#include "wire/Interface.h"

#include <cstdint>
#include <cstdio>
#include <string_view>

namespace kelutv::wire {

namespace {

/** FNV-1a of 64 bits, the same on every machine. */
class Sum {
public:
    void add(std::string_view text) {
        for (const char letter : text) {
            addByte(static_cast<std::uint8_t>(letter));
        }
        addByte(0);
    }

    void add(const char* text) { add(std::string_view(text != nullptr ? text : "")); }

    void add(std::int32_t number) {
        for (std::size_t i = 0; i < sizeof(number); ++i) {
            addByte(static_cast<std::uint8_t>(static_cast<std::uint32_t>(number) >> 8 * i));
        }
    }

    std::string digits() const {
        char text[17];
        std::snprintf(text, sizeof(text), "%016llx", static_cast<unsigned long long>(mSum));
        return text;
    }

private:
    void addByte(std::uint8_t byte) { mSum = (mSum ^ byte) * 0x100000001b3U; }

    std::uint64_t mSum = 0xcbf29ce484222325U;
};

void add(Sum& sum, const Operation& operation) {
    sum.add(static_cast<std::int32_t>(operation.shape));
    sum.add(operation.isList ? 1 : 0);
    for (const RequestItem& item : operation.request) {
        sum.add(item.name);
        sum.add(static_cast<std::int32_t>(item.encoding));
        sum.add(item.lengthItem);
    }
    for (const ReplyField& field : operation.reply) {
        sum.add(field.name);
        sum.add(static_cast<std::int32_t>(field.encoding));
        sum.add(field.count);
    }
}

} // namespace

std::string interfaceFingerprint() {
    Sum sum;
    for (const Command& command : allCommands()) {
        sum.add(command.name);
        sum.add(command.value);
        add(sum, command.operation);
    }
    for (const Item& item : allItems()) {
        sum.add(item.command);
        sum.add(item.value);
        add(sum, item.operation);
    }
    return sum.digits();
}

} // namespace kelutv::wire
