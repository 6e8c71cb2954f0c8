#include "tools/kelutv/calls/ArgumentReader.h"

#include "tools/kelutv/calls/Callbacks.h"
#include "tools/kelutv/calls/Scalars.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/Hex.h"
#include "tools/kelutv/text/InputFile.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/text/Nearest.h"
#include "wire/text/Shown.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <optional>
#include <set>

namespace kelutv::tool {

namespace {

std::string unquoted(const std::string& text) {
    const bool isQuoted = text.size() > 1 && text.front() == '"' && text.back() == '"';
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

/** Whether it is written like `02:00:00:12:34:56`. */
bool isAddress(const std::string& text) {
    constexpr std::size_t kStep = 3;
    if (text.size() < kStep || text.size() % kStep != 2) {
        return false;
    }
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isRight = i % kStep == 2 ? text[i] == ':' : std::isxdigit(static_cast<unsigned char>(text[i])) != 0;
        if (!isRight) {
            return false;
        }
    }
    return true;
}

std::string withoutColons(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), ':'), text.end());
    return text;
}

std::vector<std::string> entriesOf(const std::string& text) {
    const bool hasBrackets = text.size() > 1 && text.front() == '[' && text.back() == ']';
    return split(hasBrackets ? text.substr(1, text.size() - 2) : text, ',');
}

/** The bytes that `hex:`, `@FILE` or an address as it is printed stand for. */
std::optional<std::vector<std::uint8_t>> blockOf(const std::string& text) {
    constexpr const char* kHex = "hex:";
    if (text.rfind(kHex, 0) == 0) {
        return bytesOfHex(text.substr(std::strlen(kHex)));
    }
    if (const std::string address = unquoted(text); isAddress(address)) {
        return bytesOfHex(withoutColons(address));
    }
    return !text.empty() && text[0] == '@' ? std::optional(bytesOfFile(text.substr(1))) : std::nullopt;
}

const wire::Field& fieldNamed(const wire::Record& record, const std::string& name) {
    std::vector<std::string> names;
    for (const wire::Field& field : record.fields) {
        if (field.name == name) {
            return field;
        }
        names.emplace_back(field.name);
    }
    throw UsageError("there is no field '" + wire::shown(name) + "' in " + record.name + ", which has " +
                     joined(names, ", ") + wire::nearestHint(name, names));
}

class Reader {
public:
    Reader(const wire::Parameter& parameter, CallFrame::Storage& storage) : mParameter(parameter), mStorage(storage) {}

    void read(const std::string& text) {
        if (text == "null" && mParameter.isPointer) {
            readNull();
            return;
        }
        switch (mParameter.values.kind) {
        case wire::ValueKind::Text:
            readText(unquoted(text));
            break;
        case wire::ValueKind::Array:
            readArray(text);
            break;
        case wire::ValueKind::Record:
            readRecord(text);
            break;
        case wire::ValueKind::Callback:
            readCallback(text);
            break;
        default:
            mStorage.bytes.resize(sizeOf(mParameter.values.scalar));
            writeScalar(mParameter.values, text, mStorage.bytes.data());
        }
    }

private:
    void readNull() {
        if (!mParameter.allowsNull) {
            throw UsageError("null is not allowed here");
        }
        mStorage.isNull = true;
    }

    void readText(const std::string& text) {
        mStorage.bytes.assign(text.begin(), text.end());
        mStorage.bytes.push_back(0);
    }

    void readArray(const std::string& text) {
        const std::size_t size = sizeOf(mParameter.values.scalar);
        if (const auto block = blockOf(text)) {
            mStorage.count = block->size();
            mStorage.bytes.assign(block->size() * size, 0);
            for (std::size_t i = 0; i < block->size(); ++i) {
                writeScalar(mParameter.values, std::to_string((*block)[i]), &mStorage.bytes[i * size]);
            }
        } else {
            const std::vector<std::string> entries = entriesOf(text);
            mStorage.count = entries.size();
            mStorage.bytes.assign(entries.size() * size, 0);
            for (std::size_t i = 0; i < entries.size(); ++i) {
                writeScalar(mParameter.values, entries[i], &mStorage.bytes[i * size]);
            }
        }
        checkLead();
        mStorage.bytes.push_back(0); // There is something to point at when there are no entries.
    }

    /** A block that says its own length must hold as much, for the library believes it. */
    void checkLead() const {
        if (!mParameter.isLedByLength) {
            return;
        }
        std::uint32_t length = 0;
        const bool isWhole = mStorage.bytes.size() >= sizeof length;
        if (isWhole) {
            std::memcpy(&length, mStorage.bytes.data(), sizeof length);
        }
        if (!isWhole || length > mStorage.bytes.size() - sizeof length) {
            throw UsageError("the block begins with a word that says how many bytes follow, and they must be there");
        }
    }

    void readRecord(const std::string& text) {
        const wire::Record& record = *mParameter.values.record;
        mStorage.bytes.assign(record.size, 0);
        std::set<const wire::Field*> given;
        for (const std::string& entry : split(text, ',')) {
            const std::size_t equals = entry.find('=');
            if (equals == std::string::npos) {
                throw UsageError("'" + wire::shown(entry) + "' is not FIELD=VALUE");
            }
            const wire::Field& field = fieldNamed(record, entry.substr(0, equals));
            if (!given.insert(&field).second) {
                throw UsageError(std::string(field.name) + " is given twice");
            }
            readField(field, entry.substr(equals + 1));
        }
    }

    void readField(const wire::Field& field, const std::string& text) {
        try {
            writeScalar(typeOf(field), text, &mStorage.bytes[field.offset]);
        } catch (const UsageError& error) {
            throw UsageError(std::string(field.name) + ": " + error.what());
        }
    }

    void readCallback(const std::string& text) {
        mStorage.bytes.assign(sizeof(void*), 0);
        if (text == "print") {
            storePrinter(mParameter.type, mStorage.bytes.data());
        } else if (text != "null") {
            throw UsageError("'" + wire::shown(text) + "' is not print or null");
        }
    }

    const wire::Parameter& mParameter;
    CallFrame::Storage& mStorage;
};

} // namespace

void readArgument(const wire::Parameter& parameter, const std::string& text, CallFrame::Storage& storage) {
    Reader(parameter, storage).read(text);
}

} // namespace kelutv::tool
