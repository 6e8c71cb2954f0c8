#include "tools/kelutv/recordings/Anonymiser.h"

#include "tools/kelutv/recordings/DecodedForm.h"
#include "tools/kelutv/text/Patterns.h"
#include "wire/codec/ValueReader.h"
#include "wire/events/Payload.h"
#include "wire/text/Describe.h"

#include <cstring>
#include <string_view>
#include <utility>

namespace kelutv::tool {

namespace {

/** As many as ASCII has. */
constexpr unsigned int kPlainLetters = 0x80;
constexpr char kNoPlainLetter = '\x80';
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
    return static_cast<std::uint8_t>(letter) < kPlainLetters ? letter : '?';
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

bool Anonymiser::mask(recording::Line& line) const {
    if (auto* const transaction = std::get_if<recording::Transaction>(&line.content)) {
        return mask(*transaction);
    }
    auto* const event = std::get_if<recording::Event>(&line.content);
    return event == nullptr || mask(*event);
}

bool Anonymiser::mask(recording::Transaction& transaction) const {
    const DecodedRequest decoded = decodeRequest(transaction.request);
    if (!isMeant(decoded.request)) {
        return decoded.request.command != nullptr;
    }
    maskRequest(decoded, transaction.request);
    if (transaction.reply) {
        maskReply(decoded.request, *transaction.reply);
    }
    if (!transaction.decoded.empty()) {
        transaction.decoded = decodedForm(transaction);
    }
    return true;
}

void Anonymiser::maskRequest(const DecodedRequest& decoded, recording::Bytes& bytes) const {
    const wire::Request& request = decoded.request;
    std::size_t at = request.argumentsAt;
    for (std::size_t i = 0; i < request.arguments.size(); ++i) {
        const wire::RequestItem& item = wire::itemsOf(request)[i];
        const std::size_t begin = at;
        maskValues(bytes, at, item.encoding, request.arguments[i]);
        if (item.encoding == wire::Encoding::Int32 && isTelling(item)) {
            maskNumbers(bytes.data() + begin, 1);
        }
    }
    if (decoded.flaw) {
        maskFrom(bytes, at);
    }
}

void Anonymiser::maskReply(const wire::Request& request, recording::Bytes& reply) const {
    const wire::Operation& operation = operationFor(request);
    const wire::ReplyReading reading = decodeReply(operation, reply);
    const wire::Reply& read = reading.reply;
    std::size_t at = reading.hasResult ? kWord : 0;
    for (std::size_t i = 0; i < read.fields.size(); ++i) {
        const std::size_t begin = at;
        const wire::ReplyField& field = wire::fieldAt(operation, i);
        maskValues(reply, at, field.encoding, read.fields[i]);
        if (isNumber(operation) && field.encoding == wire::Encoding::Int32 && at - begin == kWord) {
            maskNumbers(reply.data() + begin, 1);
        }
    }
    if (reading.flaw) {
        maskFrom(reply, at);
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
            maskText(begin, text->size());
        } else if (encoding == wire::Encoding::Bytes) {
            maskBlock(begin, text->size());
        } else if (encoding == wire::Encoding::String16) {
            std::int32_t units = 0;
            std::memcpy(&units, begin, sizeof(units));
            maskText16(begin + sizeof(units), static_cast<std::size_t>(units));
        }
    }
    at = reader.position();
}

std::uint64_t Anonymiser::chanceFor(const std::string& whole, std::size_t place) const {
    return mHash.of(whole + '#' + std::to_string(place));
}

void Anonymiser::maskText(std::uint8_t* letters, std::size_t length) const {
    const std::string whole(letters, letters + length);
    for (std::size_t i = 0; i < length; ++i) {
        letters[i] = static_cast<std::uint8_t>(maskOf(static_cast<char>(letters[i]), chanceFor(whole, i)));
    }
}

void Anonymiser::maskText16(std::uint8_t* units, std::size_t count) const {
    const std::string whole(units, units + count * sizeof(char16_t));
    for (std::size_t i = 0; i < count; ++i) {
        char16_t unit = 0;
        std::memcpy(&unit, units + i * sizeof(unit), sizeof(unit));
        const char letter =
            maskOf(unit < kPlainLetters ? static_cast<char>(unit) : kNoPlainLetter, chanceFor(whole, i));
        unit = static_cast<std::uint8_t>(letter);
        std::memcpy(units + i * sizeof(unit), &unit, sizeof(unit));
    }
}

void Anonymiser::maskBlock(std::uint8_t* bytes, std::size_t length) const {
    const std::string whole(bytes, bytes + length);
    for (std::size_t i = 0; i < length; ++i) {
        bytes[i] = static_cast<std::uint8_t>(chanceFor(whole, i));
    }
}

void Anonymiser::maskFrom(recording::Bytes& bytes, std::size_t at) const {
    maskBlock(bytes.data() + at, bytes.size() - at);
}

void Anonymiser::maskNumbers(std::uint8_t* bytes, std::size_t count) const {
    const std::string whole(bytes, bytes + count * kWord);
    const std::size_t used = (whole.find_last_not_of('\0') + kWord) / kWord;
    for (std::size_t i = 0; i < used; ++i) {
        const std::int32_t masked = static_cast<std::uint8_t>(chanceFor(whole, i));
        std::memcpy(bytes + i * kWord, &masked, kWord);
    }
}

bool Anonymiser::mask(recording::Event& event) const {
    const wire::Event* const known = recordedEvents().find(event.event);
    if (known == nullptr) {
        return event.payload.empty();
    }
    std::size_t read = 0;
    std::size_t at = 0;
    for (const wire::PayloadValue& value : wire::readPayload(known, event.payload)) {
        if (value.name == nullptr) {
            break;
        }
        if (value.encoding == wire::Encoding::CString) {
            maskText(event.payload.data() + value.offset, std::get<std::string>(value.value).size());
        }
        at = value.offset + value.size;
        ++read;
    }
    if (read < known->fields.size() && known->fields[read].type == wire::FieldType::Text) {
        maskFrom(event.payload, at);
    }
    if (!event.decoded.empty()) {
        event.decoded = decodedForm(event);
    }
    return true;
}

} // namespace kelutv::tool
