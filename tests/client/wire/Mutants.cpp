#include "client/wire/Mutants.h"

#include "wire/codec/Request.h"
#include "wire/codec/Utf8.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace kelutv::test {

namespace {

constexpr std::size_t kWord = sizeof(std::int32_t);
constexpr char kNeverSame[] = "";
constexpr char kSameReversed[] = "the bytes of the word are the same from both ends";
constexpr char kSameFields[] = "the two fields are the same";
constexpr char kEmptyField[] = "the field is an empty block";

std::size_t padded(std::size_t size) { return (size + kWord - 1) / kWord * kWord; }

std::size_t sizeOf(const wire::RequestItem& item, const wire::Values& values) {
    switch (item.encoding) {
    case wire::Encoding::CString:
        return padded(std::get<std::string>(values.front()).size() + 1);
    case wire::Encoding::String16:
        // The values of the tables are ASCII.
        return kWord + padded((std::get<std::string>(values.front()).size() + 1) * sizeof(char16_t));
    case wire::Encoding::Bytes:
        return padded(std::get<std::string>(values.front()).size());
    case wire::Encoding::Double:
    case wire::Encoding::Doubles:
        return values.size() * sizeof(double);
    case wire::Encoding::Int32:
    case wire::Encoding::Ints:
        break;
    }
    return values.size() * kWord;
}

/** Makes the mutants of one request, kind by kind. */
class Mutator {
public:
    Mutator(const Bytes& request, const MutantChoice& choice) : mRequest(request), mChoice(choice) {
        wire::ByteReader reader(request.data(), request.size());
        const wire::Request read = wire::readRequest(reader);
        mFields.push_back(read.argumentsAt - kWord);
        mFields.push_back(read.argumentsAt);
        for (std::size_t i = 0; i < read.arguments.size(); ++i) {
            mFields.push_back(mFields.back() + sizeOf(read.command->operation.request[i], read.arguments[i]));
        }
    }

    std::vector<Mutant> all() {
        const std::size_t from = mChoice.token ? 0 : mFields.front();
        for (std::size_t at = from; at < mRequest.size(); ++at) {
            changeByte(at);
        }
        for (std::size_t at = from; at + kWord <= mRequest.size(); at += kWord) {
            changeWord(at);
        }
        for (std::size_t i = 0; i + 1 < mFields.size(); ++i) {
            changeField(mFields[i], mFields[i + 1]);
        }
        for (std::size_t i = 0; i + 2 < mFields.size(); ++i) {
            changeOrder(mFields[i], mFields[i + 1], mFields[i + 2]);
        }
        changeLength(from);
        return std::move(mMutants);
    }

private:
    void changeByte(std::size_t at) {
        for (unsigned bit = 1; bit < 0x100U; bit <<= 1U) {
            Bytes bytes = mRequest;
            bytes[at] = static_cast<std::uint8_t>(bytes[at] ^ bit);
            add("byte", "byte " + std::to_string(at) + " xor " + std::to_string(bit), std::move(bytes), kNeverSame);
            if (!mChoice.everyBit) {
                return;
            }
        }
    }

    void changeWord(std::size_t at) {
        const std::string place = "word at " + std::to_string(at);
        std::uint32_t word = 0;
        std::memcpy(&word, &mRequest[at], kWord);
        ++word;
        Bytes more = mRequest;
        std::memcpy(&more[at], &word, kWord);
        add("word", place + " plus 1", std::move(more), kNeverSame);
        Bytes reversed = mRequest;
        std::reverse(&reversed[at], &reversed[at] + kWord);
        add("word", place + " with its bytes in the other order", std::move(reversed), kSameReversed);
    }

    void changeField(std::size_t from, std::size_t to) {
        const std::string place = "field at " + std::to_string(from);
        Bytes without = mRequest;
        without.erase(without.begin() + offset(from), without.begin() + offset(to));
        add("field", place + " left out", std::move(without), kEmptyField);
        Bytes twice = mRequest;
        twice.insert(twice.begin() + offset(to), mRequest.begin() + offset(from), mRequest.begin() + offset(to));
        add("field", place + " twice", std::move(twice), kEmptyField);
    }

    void changeOrder(std::size_t first, std::size_t second, std::size_t end) {
        Bytes swapped = mRequest;
        std::rotate(swapped.begin() + offset(first), swapped.begin() + offset(second), swapped.begin() + offset(end));
        add("order", "fields at " + std::to_string(first) + " and " + std::to_string(second) + " changed over",
            std::move(swapped), kSameFields);
    }

    void changeLength(std::size_t from) {
        for (std::size_t size = padded(from); size < mRequest.size(); size += kWord) {
            resize(size);
        }
        for (const std::size_t size :
             {std::size_t{0}, mRequest.size() - 1, mRequest.size() + 1, mRequest.size() + kWord}) {
            resize(size);
        }
    }

    void resize(std::size_t size) {
        Bytes bytes = mRequest;
        bytes.resize(size);
        add("length", std::to_string(size) + " bytes", std::move(bytes), kNeverSame);
    }

    void add(const char* kind, std::string change, Bytes bytes, const char* whySame) {
        mMutants.push_back({kind, std::move(change), std::move(bytes), whySame});
    }

    static std::ptrdiff_t offset(std::size_t at) { return static_cast<std::ptrdiff_t>(at); }

    const Bytes& mRequest;
    const MutantChoice mChoice;
    /** Where the command and each field behind it begin, and where the last one ends. */
    std::vector<std::size_t> mFields;
    std::vector<Mutant> mMutants;
};

} // namespace

std::vector<Mutant> mutantsOf(const Bytes& request, const MutantChoice& choice) {
    return Mutator(request, choice).all();
}

} // namespace kelutv::test
