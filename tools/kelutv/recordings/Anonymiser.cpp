#include "tools/kelutv/recordings/Anonymiser.h"

#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/recordings/DecodedForm.h"
#include "tools/kelutv/text/Patterns.h"
#include "wire/codec/ValueReader.h"
#include "wire/events/Payload.h"
#include "wire/text/Describe.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

namespace kelutv::tool {

namespace {

constexpr std::size_t kWord = sizeof(std::int32_t);

/** Numbers that stand by themselves and tell of what is masked beside them. */
bool isTelling(const wire::RequestItem& item) {
    const std::string_view name = item.name;
    return name == "checksum" || name == "xorchecksum" || name == "value";
}

/** How each value of a block stands by itself. */
wire::Encoding elementOf(wire::Encoding encoding) {
    if (encoding == wire::Encoding::Ints) {
        return wire::Encoding::Int32;
    }
    return encoding == wire::Encoding::Doubles ? wire::Encoding::Double : encoding;
}

/** A number that a reply gives by itself, such as a byte of the EEPROM. */
bool isNumber(const wire::Operation& operation) { return operation.shape == wire::Shape::Number; }

char maskOf(char letter, std::uint64_t chance) {
    const auto from = [chance](char first, unsigned int count) { return static_cast<char>(first + chance % count); };
    if (letter >= '0' && letter <= '9') {
        return from('0', 10);
    }
    // A digit of a hexadecimal number stays one.
    if ((letter >= 'a' && letter <= 'f') || (letter >= 'A' && letter <= 'F')) {
        return from(letter >= 'a' ? 'a' : 'A', 6);
    }
    if (letter >= 'a' && letter <= 'z') {
        return from('a', 26);
    }
    if (letter >= 'A' && letter <= 'Z') {
        return from('A', 26);
    }
    return static_cast<std::uint8_t>(letter) < 0x80 ? letter : '?';
}

} // namespace

const std::vector<std::string>& identityRequests() {
    static const std::vector<std::string> names{"CMD_FACTORY_GETBARCODE",
                                                "CMD_FACTORY_GETMACADDRESS",
                                                "CMD_FACTORY_SETMACADDRESS",
                                                "CMD_FACTORY_GET_EMMC_ID",
                                                "CMD_FACTORY_GET_SOC_CHIP_ID",
                                                "CMD_FACTORY_GETDTVSN",
                                                "CMD_FACTORY_SETSTBOTPBURN",
                                                "CMD_FACTORY_SETKEYDATA",
                                                "CMD_FACTORY_NETPORTDATATRAN",
                                                "CMD_FACTORY_GET_NETPORTDATATRAN",
                                                "CMD_FACTORY_GETPANELID",
                                                "CMD_EXTRA_SETUARTDATA",
                                                "CMD_CEC_GETDEVICELISTALLINFO",
                                                "CMD_SYSTEM_GETEEPBYTE",
                                                "CMD_SYSTEM_GETEEPMULTI",
                                                "CMD_SYSTEM_SETEEPBYTE",
                                                "CMD_SYSTEM_SETEEPMULTI",
                                                "CMD_SYSTEM_GETFLASHEEPBYTE",
                                                "CMD_SYSTEM_GETFLASHEEPMULTI",
                                                "CMD_SYSTEM_SETFLASHEEPBYTE",
                                                "CMD_SYSTEM_SETFLASHEEPMULTI",
                                                "CMDID_FACTORY_GET_CUSTOMER_NAME",
                                                "CMDID_FACTORY_GET_MACHINEINFO",
                                                "CMDID_FACTORY_SET_MACHINEINFO",
                                                "CMDID_FACTORY_GET_PASSWORD",
                                                "CMDID_FACTORY_GET_DEVELOPER_ID",
                                                "CMDID_FACTORY_GET_PRODUCE_ID",
                                                "CMDID_FACTORY_GET_PRODUCT_NUMBER",
                                                "CMDID_FACTORY_GET_ORDER_NUMBER",
                                                "CMDID_FACTORY_SET_SEA_ALL_KEY_BURN",
                                                "CMDID_FACTORY_SEND_SERIAL_SELF_CHECK_DATA"};
    return names;
}

Anonymiser::Anonymiser(const KeyedHash& hash, std::vector<wire::RequestPattern> more)
    : mHash(hash), mPatterns(std::move(more)) {
    for (const std::string& name : identityRequests()) {
        mPatterns.emplace_back(name);
    }
}

bool Anonymiser::isMeant(const wire::Request& request) const {
    return request.command != nullptr && matchesAny(mPatterns, request);
}

void Anonymiser::mask(recording::Line& line) const {
    if (auto* const transaction = std::get_if<recording::Transaction>(&line.content)) {
        mask(*transaction);
    } else if (auto* const event = std::get_if<recording::Event>(&line.content)) {
        mask(*event);
    }
}

void Anonymiser::mask(recording::Transaction& transaction) const {
    const wire::Request request = decodeRequest(transaction.request).request;
    if (!isMeant(request)) {
        return;
    }
    std::size_t at = request.argumentsAt;
    for (std::size_t i = 0; i < request.arguments.size(); ++i) {
        const wire::RequestItem& item = wire::itemsOf(request)[i];
        const std::size_t begin = at;
        maskValues(transaction.request, at, item.encoding, request.arguments[i]);
        if (item.encoding == wire::Encoding::Int32 && isTelling(item)) {
            maskNumbers(transaction.request.data() + begin, 1);
        }
    }
    if (transaction.reply) {
        maskReply(request, *transaction.reply);
    }
    if (!transaction.decoded.empty()) {
        transaction.decoded = decodedForm(transaction);
    }
}

void Anonymiser::maskReply(const wire::Request& request, recording::Bytes& reply) const {
    const wire::Operation& operation = operationFor(request);
    const wire::Reply read = decodeReply(operation, reply).reply;
    std::size_t at = kWord;
    for (std::size_t i = 0; i < read.fields.size(); ++i) {
        const std::size_t begin = at;
        const wire::ReplyField& field = wire::fieldAt(operation, i);
        maskValues(reply, at, field.encoding, read.fields[i]);
        if (isNumber(operation) && field.encoding == wire::Encoding::Int32 && at - begin == kWord) {
            maskNumbers(reply.data() + begin, 1);
        }
    }
}

/** Walks over the values as they stand in a parcel, and masks those that are texts or blocks. */
void Anonymiser::maskValues(recording::Bytes& bytes, std::size_t& at, wire::Encoding encoding,
                            const wire::Values& values) const {
    wire::ByteReader reader(bytes.data(), bytes.size());
    reader.moveTo(at);
    if (encoding == wire::Encoding::Ints) {
        maskNumbers(bytes.data() + at, values.size());
    }
    for (const wire::Value& value : values) {
        std::uint8_t* const begin = bytes.data() + reader.position();
        const auto* const text = std::get_if<std::string>(&value);
        wire::readValues(reader, elementOf(encoding), text != nullptr ? text->size() : 1);
        if (encoding == wire::Encoding::CString) {
            maskText(begin, text->size(), 1);
        } else if (encoding == wire::Encoding::Bytes) {
            maskBlock(begin, text->size());
        } else if (encoding == wire::Encoding::String16) {
            std::int32_t units = 0;
            std::memcpy(&units, begin, sizeof(units));
            maskText(begin + sizeof(units), static_cast<std::size_t>(units), sizeof(char16_t));
        }
    }
    at = reader.position();
}

std::uint64_t Anonymiser::chanceFor(const std::string& whole, std::size_t place) const {
    return mHash.of(whole + '#' + std::to_string(place));
}

void Anonymiser::maskText(std::uint8_t* letters, std::size_t length, std::size_t step) const {
    const std::string whole(letters, letters + length * step);
    for (std::size_t i = 0; i < length; ++i) {
        letters[i * step] =
            static_cast<std::uint8_t>(maskOf(static_cast<char>(letters[i * step]), chanceFor(whole, i)));
    }
}

void Anonymiser::maskBlock(std::uint8_t* bytes, std::size_t length) const {
    const std::string whole(bytes, bytes + length);
    for (std::size_t i = 0; i < length; ++i) {
        bytes[i] = static_cast<std::uint8_t>(chanceFor(whole, i));
    }
}

void Anonymiser::maskNumbers(std::uint8_t* bytes, std::size_t count) const {
    const std::string whole(bytes, bytes + count * kWord);
    const std::size_t used = (whole.find_last_not_of('\0') + kWord) / kWord;
    for (std::size_t i = 0; i < used; ++i) {
        const std::int32_t masked = static_cast<std::uint8_t>(chanceFor(whole, i));
        std::memcpy(bytes + i * kWord, &masked, kWord);
    }
}

void Anonymiser::mask(recording::Event& event) const {
    static const wire::EventTable events = eventsOf("");
    for (const wire::PayloadValue& value : wire::readPayload(events.find(event.event), event.payload)) {
        const auto* const text = std::get_if<std::string>(&value.value);
        if (text == nullptr || text->empty()) {
            continue;
        }
        const auto found = std::search(event.payload.begin(), event.payload.end(), text->begin(), text->end());
        if (found != event.payload.end()) {
            maskText(&*found, text->size(), 1);
        }
    }
    if (!event.decoded.empty()) {
        event.decoded = decodedForm(event);
    }
}

} // namespace kelutv::tool
