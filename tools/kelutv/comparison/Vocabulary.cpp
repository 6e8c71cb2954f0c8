#include "tools/kelutv/comparison/Vocabulary.h"

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

std::string wholeKey(const Happening& happening, std::string key) {
    key += std::to_string(happening.number) + ';';
    append(key, happening.reply);
    return key;
}

std::string subjectKey(const Happening& happening) {
    if (happening.kind != Kind::Call) {
        return (happening.kind == Kind::Event ? "event " : "loss ") + std::to_string(happening.number);
    }
    const wire::Request request = requestOf(happening).request;
    if (!request.number) {
        return "unreadable";
    }
    const bool hasItem = request.command != nullptr && request.command->hasItems && !request.arguments.empty();
    return std::to_string(*request.number) +
           (hasItem ? ',' + std::to_string(std::get<std::int32_t>(request.arguments.front().front())) : "");
}

/** The number that stands for the key, a new one for a new key. */
std::uint32_t numberOf(std::unordered_map<std::string, std::uint32_t>& numbers, const std::string& key) {
    return numbers.emplace(key, static_cast<std::uint32_t>(numbers.size())).first->second;
}

} // namespace

Token Vocabulary::tokenOf(const Happening& happening) {
    const std::string request = requestKey(happening);
    const std::uint32_t whole = numberOf(mWholes, wholeKey(happening, request));
    if (whole == mTokens.size()) {
        mTokens.push_back(newTokenOf(happening, request));
        mHappenings.push_back(happening);
    }
    return mTokens[whole];
}

Token Vocabulary::newTokenOf(const Happening& happening, const std::string& request) {
    const std::uint32_t number = numberOf(mRequests, request);
    if (number == mSubjectsOfRequests.size()) {
        mSubjectsOfRequests.push_back(numberOf(mSubjects, subjectKey(happening)));
    }
    return {static_cast<std::uint32_t>(mTokens.size()), number, mSubjectsOfRequests[number]};
}

} // namespace kelutv::tool
