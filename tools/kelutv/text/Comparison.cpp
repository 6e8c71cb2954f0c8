#include "tools/kelutv/text/Comparison.h"

#include "tools/kelutv/output/Errors.h"
#include "wire/text/Shown.h"

#include <cstring>

namespace kelutv::tool {

namespace {

struct Sign {
    const char* text;
    Relation relation;
};

/** One that begins with another stands before it. */
constexpr Sign kSigns[] = {
    {"==", Relation::Equal},       {"=", Relation::Equal}, {"!=", Relation::NotEqual},
    {"<=", Relation::LessOrEqual}, {"<", Relation::Less},  {">=", Relation::GreaterOrEqual},
    {">", Relation::Greater},
};

std::string withoutBlanks(const std::string& text) {
    const std::size_t begin = text.find_first_not_of(' ');
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

const Sign* signAt(const std::string& word, std::size_t place) {
    for (const Sign& sign : kSigns) {
        if (word.compare(place, std::strlen(sign.text), sign.text) == 0) {
            return &sign;
        }
    }
    return nullptr;
}

} // namespace

std::optional<Comparison> comparisonIn(const std::string& word) {
    const std::size_t place = word.find_first_of("=!<>");
    const Sign* const sign = place == std::string::npos ? nullptr : signAt(word, place);
    if (sign == nullptr) {
        return std::nullopt;
    }
    Comparison comparison{withoutBlanks(word.substr(0, place)), sign->relation,
                          withoutBlanks(word.substr(place + std::strlen(sign->text)))};
    if (comparison.name.empty() || comparison.value.empty()) {
        throw UsageError("a name and a value stand on the sides of " + std::string(sign->text) + ", not '" +
                         wire::shown(word) + '\'');
    }
    return comparison;
}

bool isOfOrder(Relation relation) { return relation != Relation::Equal && relation != Relation::NotEqual; }

} // namespace kelutv::tool
