#include "tools/kelutv/snapshot/SetArguments.h"

#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/calls/PlainArguments.h"

namespace kelutv::tool {

namespace {

using Words = std::vector<std::string>;

/** Hands out the values of a state to the parameters that take them. */
class Values {
public:
    explicit Values(const Json& values) : mNext(values.entries().begin()), mEnd(values.entries().end()) {}

    bool areTaken() const { return mNext == mEnd; }

    std::string wordFor(const wire::Parameter& parameter) {
        switch (parameter.values.kind) {
        case wire::ValueKind::Text:
            return '"' + next() + '"';
        case wire::ValueKind::Array:
            return list();
        case wire::ValueKind::Record:
            return record(*parameter.values.record);
        default:
            return parameter.values.scalar == wire::ScalarType::Double ? real() : next();
        }
    }

private:
    /** A real number, which may be stored as its whole part and the thousandths of the rest, both cut off. */
    std::string real() {
        constexpr double kThousand = 1000;
        if (mEnd - mNext < 2 || !mNext->isInteger() || !(mNext + 1)->isInteger()) {
            return next();
        }
        const double whole = (mNext++)->asReal();
        const double rest = (mNext++)->asReal();
        const double middle = whole < 0 || rest < 0 ? -0.5 : 0.5;
        return std::to_string(whole + (rest + middle) / kThousand);
    }

    std::string next() {
        if (areTaken()) {
            return "0";
        }
        const Json& value = *mNext++;
        return value.isText() ? value.asText() : value.dump();
    }

    std::string list() {
        std::string text = "[";
        while (!areTaken()) {
            text += (text.size() == 1 ? "" : ",") + next();
        }
        return text + ']';
    }

    std::string record(const wire::Record& record) {
        std::string text;
        for (const wire::Field& field : record.fields) {
            text += (text.empty() ? "" : ",") + std::string(field.name) + '=' + next();
        }
        return text;
    }

    Json::Entries::const_iterator mNext;
    Json::Entries::const_iterator mEnd;
};

/** The argument that the reading had for a parameter of this name; null without one. */
const std::string* keyNamed(const Reading& reading, const char* name) {
    std::size_t index = 0;
    for (const wire::Parameter* const parameter : givenParameters(*reading.function)) {
        if (std::string(parameter->name) == name) {
            return &reading.arguments[index];
        }
        ++index;
    }
    return nullptr;
}

} // namespace

Words argumentsFor(const wire::Function& setter, const HeldState& held) {
    Values values(held.values);
    Words arguments;
    for (const wire::Parameter* const parameter : givenParameters(setter)) {
        if (parameter->direction == wire::Direction::Length) {
            continue;
        }
        const std::string* const key = keyNamed(held.reading, parameter->name);
        if (key != nullptr) {
            arguments.push_back(*key);
        } else {
            arguments.push_back(values.areTaken() ? plainArgument(*parameter) : values.wordFor(*parameter));
        }
    }
    return arguments;
}

} // namespace kelutv::tool
