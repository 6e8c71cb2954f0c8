#include "tools/kelutv/comparison/ComparedKeys.h"

#include "tools/kelutv/comparison/Values.h"

#include <algorithm>

namespace kelutv::tool {

namespace {

using Kind = Happening::Kind;

void append(std::string& text, const recording::Bytes& bytes) {
    text += std::to_string(bytes.size()) + ':';
    text.append(bytes.begin(), bytes.end());
}

std::string requestKey(const Happening& happening) {
    std::string key(1, static_cast<char>('0' + static_cast<int>(happening.kind)));
    if (happening.kind == Kind::Event) {
        key += std::to_string(happening.number) + ';';
    }
    key += happening.hasToken ? 't' : '-';
    append(key, happening.token);
    append(key, happening.bytes);
    return key;
}

std::string answerKey(const Happening& happening) {
    std::string key = std::to_string(happening.number) + ';';
    append(key, happening.reply);
    return key;
}

/** Puts the values of one place together that are not passed over. */
class ValueKey {
public:
    explicit ValueKey(const std::vector<wire::Pattern>& ignored) : mIgnored(ignored) {}

    void add(const std::string& name, const std::string& text) {
        if (!isIgnored(name)) {
            mKey += name + '=' + std::to_string(text.size()) + ':' + text;
        }
    }

    void add(const std::vector<NamedValue>& values) {
        for (const Part& part : partsOf(values)) {
            if (part.value.values.size() < 2) {
                add(part.name, textIn(part.value));
            } else if (!isIgnored(part.name)) {
                for (std::size_t i = 0; i < part.value.values.size(); ++i) {
                    add(elementName(part.name, i), textIn(elementOf(part.value, i)));
                }
            }
        }
    }

    void add(const std::optional<wire::ReplyFlaw>& flaw) { add("fault", flaw ? textOf(*flaw) : ""); }

    /** @param otherwise the key where none of the values is passed over */
    std::string keyOr(const std::string& otherwise) const { return mHasIgnored ? mKey : otherwise; }

private:
    bool isIgnored(const std::string& name) {
        const bool isIgnored = std::any_of(mIgnored.begin(), mIgnored.end(),
                                           [&name](const wire::Pattern& each) { return each.matches(name); });
        mHasIgnored = mHasIgnored || isIgnored;
        return isIgnored;
    }

    const std::vector<wire::Pattern>& mIgnored;
    std::string mKey;
    bool mHasIgnored = false;
};

std::string requestKey(const Happening& happening, const std::vector<wire::Pattern>& ignored) {
    ValueKey key(ignored);
    if (happening.kind == Kind::Call) {
        const DecodedRequest decoded = requestOf(happening);
        key.add("token", (happening.hasToken ? "t" : "-") + hexOf(happening.token));
        key.add(argumentsOf(decoded.request));
        key.add(decoded.flaw);
    } else {
        key.add(eventFieldsOf(happening));
    }
    return key.keyOr(requestKey(happening));
}

std::string answerKey(const Happening& call, const std::vector<wire::Pattern>& ignored) {
    ValueKey key(ignored);
    key.add("status", std::to_string(call.number));
    if (call.number == 0) {
        const wire::Operation& operation = operationFor(requestOf(call).request);
        const wire::ReplyReading reading = decodeReply(operation, call.reply);
        key.add("result", reading.hasResult ? std::to_string(reading.reply.result) : "");
        key.add(fieldsOf(operation, reading.reply));
        key.add(reading.flaw);
    }
    return key.keyOr(answerKey(call));
}

} // namespace

ComparedKeys keysOf(const Happening& happening) {
    const std::string request = requestKey(happening);
    return {request, request + answerKey(happening)};
}

ComparedKeys keysOf(const Happening& happening, const std::string& subject, const std::vector<wire::Pattern>& ignored) {
    const std::string request = subject + ' ' + requestKey(happening, ignored);
    return {request, happening.kind == Kind::Call ? request + ' ' + answerKey(happening, ignored) : request};
}

} // namespace kelutv::tool
