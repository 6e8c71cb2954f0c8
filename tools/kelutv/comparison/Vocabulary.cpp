#include "tools/kelutv/comparison/Vocabulary.h"

namespace kelutv::tool {

namespace {

using Kind = Happening::Kind;

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
    const ComparedKeys exact = keysOf(happening);
    const std::uint32_t number = numberOf(mExact, exact.whole);
    if (number == mTokens.size()) {
        mTokens.push_back(newTokenOf(happening, exact));
        mHappenings.push_back(happening);
    }
    return mTokens[number];
}

Token Vocabulary::newTokenOf(const Happening& happening, const ComparedKeys& exact) {
    const auto number = static_cast<std::uint32_t>(mTokens.size());
    const std::vector<wire::Pattern> ignored = mIgnored.valuesOf(happening);
    std::uint32_t whole = number;
    std::uint32_t request = 0;
    if (ignored.empty()) {
        request = numberOf(mRequests, exact.request);
    } else {
        const ComparedKeys keys = keysOf(happening, subjectKey(happening), ignored);
        whole = mWholes.emplace(keys.whole, number).first->second;
        request = numberOf(mRequests, keys.request);
    }
    if (request == mSubjectsOfRequests.size()) {
        mSubjectsOfRequests.push_back(numberOf(mSubjects, subjectKey(happening)));
    }
    return {whole, request, mSubjectsOfRequests[request], number};
}

} // namespace kelutv::tool
