#include "tools/kelutv/snapshot/StateText.h"

#include "tools/kelutv/text/Hex.h"
#include "tools/kelutv/text/Lists.h"
#include "wire/StateForm.h"
#include "wire/text/Names.h"
#include "wire/text/Printable.h"

#include <cmath>
#include <map>
#include <vector>

namespace kelutv::tool {

namespace {

constexpr char kIndexes = '[';

const wire::StateForm& knownForm(const wire::StateKey& key) {
    static std::map<const wire::StateKey*, wire::StateForm> forms;
    const auto found = forms.find(&key);
    return found != forms.end() ? found->second : forms.emplace(&key, wire::formOf(key)).first->second;
}

std::string shortName(const wire::Enumeration* names, std::int32_t number) {
    return names != nullptr ? wire::namesOf(*names).shortNameOf(number) : "";
}

std::string indexText(const wire::StatePart& part, const wire::Value& index) {
    const Json document = documentOf(index);
    const std::string name =
        document.isInteger() ? shortName(part.names, static_cast<std::int32_t>(document.asInteger())) : "";
    return name.empty() ? document.dump() : name;
}

bool isUtf8(const std::string& text) {
    for (std::size_t at = 0; at < text.size();) {
        const bool isAscii = static_cast<unsigned char>(text[at]) < 0x80;
        const std::size_t length = isAscii ? 1 : wire::lengthOfPrintable(text, at);
        if (length == 0) {
            return false;
        }
        at += length;
    }
    return true;
}

std::string valueText(const Json& value, const wire::Enumeration* names) {
    const std::string name =
        value.isInteger() ? shortName(names, static_cast<std::int32_t>(value.asInteger())) : std::string();
    return name.empty() ? value.dump() : value.dump() + " (" + name + ')';
}

const wire::Enumeration* namesAt(const wire::StateKey* key, std::size_t index) {
    if (key == nullptr) {
        return nullptr;
    }
    const std::vector<wire::StatePart>& parts = knownForm(*key).values;
    return index < parts.size() ? parts[index].names : nullptr;
}

} // namespace

std::string stateText(const wire::StateKey& key, const wire::Values& indexes) {
    if (indexes.empty()) {
        return key.name;
    }
    const std::vector<wire::StatePart>& parts = knownForm(key).indexes;
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < indexes.size(); ++i) {
        texts.push_back(indexText(i < parts.size() ? parts[i] : wire::StatePart{}, indexes[i]));
    }
    return std::string(key.name) + kIndexes + joined(texts, ",") + ']';
}

std::string nameWithoutKeys(const std::string& text) { return text.substr(0, text.find(kIndexes)); }

const wire::StateKey* stateNamedIn(const std::string& text) { return wire::findState(nameWithoutKeys(text)); }

Json documentOf(const wire::Value& value) {
    if (const auto* const number = std::get_if<std::int32_t>(&value)) {
        return *number;
    }
    if (const auto* const real = std::get_if<double>(&value)) {
        return std::isfinite(*real) ? Json(*real) : Json{{"real", std::to_string(*real)}};
    }
    const auto& text = std::get<std::string>(value);
    return isUtf8(text) ? Json(text) : Json{{"hex", hexOf({text.begin(), text.end()})}};
}

Json documentOf(const wire::Values& values) {
    Json document = Json::array();
    for (const wire::Value& value : values) {
        document.add(documentOf(value));
    }
    return document;
}

std::string valuesText(const std::string& state, const Json& values) {
    const wire::StateKey* const key = stateNamedIn(state);
    std::vector<std::string> texts;
    for (const Json& value : values.entries()) {
        texts.push_back(valueText(value, namesAt(key, texts.size())));
    }
    return texts.size() == 1 ? texts.front() : '[' + joined(texts, ", ") + ']';
}

std::string heldText(const std::string& state, const Json& values) {
    return values.isNull() ? "(missing)" : valuesText(state, values);
}

} // namespace kelutv::tool
