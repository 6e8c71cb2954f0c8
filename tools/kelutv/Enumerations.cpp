#include "tools/kelutv/Function.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/Nearest.h"
#include "tools/kelutv/text/Words.h"

#include <algorithm>
#include <set>

namespace kelutv::tool {

namespace {

/** Where more names than this are allowed only some are told. */
constexpr std::size_t kManyNames = 24;

using Match = bool (*)(const std::string& name, const std::string& wanted);

bool isSame(const std::string& name, const std::string& wanted) { return name == wanted; }

bool endsWithWord(const std::string& name, const std::string& wanted) {
    const std::size_t start = name.size() - wanted.size();
    return name.size() > wanted.size() && name.compare(start, wanted.size(), wanted) == 0 && name[start - 1] == '_';
}

bool begins(const std::string& name, const std::string& wanted) { return name.compare(0, wanted.size(), wanted) == 0; }

bool holds(const std::string& name, const std::string& wanted) { return name.find(wanted) != std::string::npos; }

std::vector<const Enumerator*> matching(const Enumeration& enumeration, const std::string& wanted, Match match) {
    std::vector<const Enumerator*> found;
    for (const Enumerator& each : enumeration.values) {
        if (match(shortNameOf(enumeration, each), wanted)) {
            found.push_back(&each);
        }
    }
    return found;
}

bool haveOneValue(const std::vector<const Enumerator*>& found) {
    return std::all_of(found.begin(), found.end(),
                       [&](const Enumerator* each) { return each->value == found[0]->value; });
}

std::string namesText(const Enumeration& enumeration) {
    const std::vector<std::string> names = shortNamesOf(enumeration);
    if (names.size() <= kManyNames) {
        return joined(names, ", ");
    }
    return joined({names.begin(), names.begin() + kManyNames}, ", ") + " and " +
           std::to_string(names.size() - kManyNames) + " more of " + enumeration.name;
}

[[noreturn]] void refuseUnknown(const Enumeration& enumeration, const std::string& text) {
    throw UsageError("'" + text + "' is not one of " + namesText(enumeration) +
                     nearestHint(text, shortNamesOf(enumeration)));
}

[[noreturn]] void refuseAmbiguous(const Enumeration& enumeration, const std::string& text,
                                  const std::vector<const Enumerator*>& found) {
    std::vector<std::string> names;
    for (const Enumerator* each : found) {
        names.push_back(shortNameOf(enumeration, *each));
    }
    throw UsageError("'" + text + "' may be " + joined(names, ", "));
}

} // namespace

std::string shortNameOf(const Enumeration& enumeration, const Enumerator& enumerator) {
    const std::string name = enumerator.name;
    const std::string usual = enumeration.usualPrefix;
    return lowered(name.substr(begins(name, usual) ? usual.size() : enumeration.prefix));
}

std::vector<std::string> shortNamesOf(const Enumeration& enumeration) {
    std::vector<std::string> names;
    for (const Enumerator& each : enumeration.values) {
        names.push_back(shortNameOf(enumeration, each));
    }
    return names;
}

const Enumerator* enumeratorOf(const Enumeration& enumeration, std::int32_t value) {
    const auto* const found = std::find_if(enumeration.values.begin(), enumeration.values.end(),
                                           [&](const Enumerator& each) { return each.value == value; });
    return found == enumeration.values.end() ? nullptr : found;
}

const Enumerator& enumeratorNamed(const Enumeration& enumeration, const std::string& text) {
    std::string wanted = lowered(text);
    for (const Enumerator& each : enumeration.values) {
        if (lowered(each.name) == wanted) {
            return each;
        }
    }
    std::replace(wanted.begin(), wanted.end(), '-', '_');
    for (const Match match : {isSame, endsWithWord, begins, holds}) {
        const auto found = matching(enumeration, wanted, match);
        if (wanted.empty() || found.empty()) {
            continue;
        }
        if (!haveOneValue(found)) {
            refuseAmbiguous(enumeration, text, found);
        }
        return *found.front();
    }
    refuseUnknown(enumeration, text);
}

std::string allowedText(const ValueType& values) {
    if (values.names != nullptr) {
        return "one of " + namesText(*values.names);
    }
    if (values.bounded) {
        return std::to_string(values.low) + " to " + std::to_string(values.high);
    }
    switch (values.scalar) {
    case Scalar::Bool:
        return "true or false";
    case Scalar::Double:
        return "a number";
    case Scalar::Unsigned:
        return "a whole number, 0 to 4294967295";
    case Scalar::Byte:
        return "a byte, 0 to 255";
    case Scalar::Int:
    case Scalar::Char:
        break;
    }
    return "a whole number, -2147483648 to 2147483647";
}

} // namespace kelutv::tool
