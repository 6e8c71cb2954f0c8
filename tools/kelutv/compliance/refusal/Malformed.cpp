#include "tools/kelutv/compliance/refusal/Malformed.h"

#include "tools/kelutv/decoding/Decoding.h"
#include "wire/codec/ByteReader.h"
#include "wire/codec/ValueReader.h"

#include <binder/Parcel.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <limits>
#include <optional>

namespace kelutv::tool::compliance {

namespace {

constexpr std::size_t kWord = sizeof(std::int32_t);
constexpr std::size_t kHuge = std::size_t{1} << 20;

/** Where one item of a request stands. */
struct WordPlace {
    const wire::RequestItem* item;
    std::size_t begin;
    std::size_t end;
};

std::vector<WordPlace> placesOf(const Bytes& bytes) {
    const wire::Request request = decodeRequest(bytes).request;
    std::vector<WordPlace> places;
    if (request.operation == nullptr) {
        return places;
    }
    wire::ByteReader data(bytes.data(), bytes.size());
    data.moveTo(request.argumentsAt);
    for (std::size_t i = 0; i < request.arguments.size(); ++i) {
        const wire::RequestItem& item = request.operation->request[i];
        const std::size_t begin = data.position();
        const bool isText = item.encoding == wire::Encoding::CString || item.encoding == wire::Encoding::String16;
        const std::size_t count = item.encoding == wire::Encoding::Bytes && !request.arguments[i].empty()
                                      ? std::get<std::string>(request.arguments[i].front()).size()
                                      : request.arguments[i].size();
        if (!wire::readValues(data, item.encoding, isText ? 1 : count)) {
            break;
        }
        places.push_back({&item, begin, data.position()});
    }
    return places;
}

std::size_t commandAt(const Bytes& request) { return decodeRequest(request).request.argumentsAt - kWord; }

Bytes withNumber(Bytes request, std::size_t at, std::int32_t number) {
    std::memcpy(request.data() + at, &number, sizeof(number));
    return request;
}

Bytes tokenOf(const char* interface) {
    android::Parcel parcel;
    parcel.writeInterfaceToken(android::String16(interface));
    return {parcel.data(), parcel.data() + parcel.dataSize()};
}

Bytes behindToken(Bytes token, const Bytes& request) {
    token.insert(token.end(), request.begin() + static_cast<std::ptrdiff_t>(commandAt(request)), request.end());
    return token;
}

Bytes longer(Bytes request, std::size_t size) {
    request.resize(std::max(size, request.size()), 0x5A);
    return request;
}

/** Where what fills up the last item begins; the end where nothing does. */
std::size_t endOfContent(const Bytes& request, const std::vector<WordPlace>& places) {
    const bool isFilled = !places.empty() && (places.back().item->encoding == wire::Encoding::CString ||
                                              places.back().item->encoding == wire::Encoding::String16 ||
                                              places.back().item->encoding == wire::Encoding::Bytes);
    return isFilled ? std::max(places.back().begin, request.size() - kWord) + 1 : request.size();
}

/** Cut off at these sizes, as far as what is left is no request: what fills the rest of one may be shorter, too. */
MalformedRequests cutOff(const Bytes& request, std::size_t least, std::size_t end) {
    MalformedRequests requests;
    for (std::size_t size = least; size < end; ++size) {
        const Bytes shorter(request.begin(), request.begin() + static_cast<std::ptrdiff_t>(size));
        if (decodeRequest(shorter).request.refusal) {
            requests.push_back(
                {"ends at byte " + std::to_string(size) + " of " + std::to_string(request.size()), shorter});
        }
    }
    return requests;
}

/** Numbers that the parameter cannot have. */
std::vector<std::int32_t> numbersOutOf(const wire::ValueType& type) {
    constexpr std::int32_t kFar = 1000;
    if (type.names != nullptr && type.names->values.size() > 0) {
        const auto [least, greatest] =
            std::minmax_element(type.names->values.begin(), type.names->values.end(),
                                [](const auto& left, const auto& right) { return left.value < right.value; });
        std::vector<std::int32_t> numbers;
        if (least->value > std::numeric_limits<std::int32_t>::min() + kFar) {
            numbers.push_back(least->value - kFar);
        }
        if (greatest->value < std::numeric_limits<std::int32_t>::max() - kFar) {
            numbers.push_back(greatest->value + kFar);
        }
        return numbers;
    }
    if (type.range == nullptr || !type.range->isBounded()) {
        return {};
    }
    std::vector<std::int32_t> numbers;
    if (*type.range->least > std::numeric_limits<std::int32_t>::min()) {
        numbers.push_back(*type.range->least - 1);
    }
    if (*type.range->greatest < std::numeric_limits<std::int32_t>::max()) {
        numbers.push_back(*type.range->greatest + 1);
    }
    return numbers;
}

} // namespace

MalformedRequests withWrongTokens(const Bytes& request) {
    return {{"has the token of another interface", behindToken(tokenOf("android.IOtherService"), request)},
            {"has no token", behindToken({}, request)}};
}

MalformedRequests truncatedInToken(const Bytes& request) { return cutOff(request, 0, commandAt(request)); }

MalformedRequests truncated(const Bytes& request) {
    return cutOff(request, commandAt(request), endOfContent(request, placesOf(request)));
}

MalformedRequests withMore(const Bytes& request) {
    MalformedRequests requests;
    for (const std::size_t more : {std::size_t{1}, kWord, std::size_t{64} * kWord}) {
        const Bytes bytes = longer(request, request.size() + more);
        if (decodeRequest(bytes).request.refusal) {
            requests.push_back({"has " + std::to_string(more) + " bytes too many", bytes});
        }
    }
    return requests;
}

MalformedRequests madeHuge(const Bytes& request) { return {{"has 1 MiB", longer(request, kHuge)}}; }

MalformedRequests withoutTexts(const Bytes& request) {
    MalformedRequests requests;
    for (const WordPlace& place : placesOf(request)) {
        if (place.item->encoding == wire::Encoding::CString || place.item->encoding == wire::Encoding::String16) {
            Bytes bytes = request;
            bytes.erase(bytes.begin() + static_cast<std::ptrdiff_t>(place.begin),
                        bytes.begin() + static_cast<std::ptrdiff_t>(place.end));
            requests.push_back({std::string("lacks the text ") + place.item->name, std::move(bytes)});
        }
    }
    return requests;
}

MalformedRequests outOfRange(const wire::Parameter& parameter, const Bytes& request) {
    MalformedRequests requests;
    for (const WordPlace& place : placesOf(request)) {
        if (place.item->encoding == wire::Encoding::Int32 && std::string(place.item->name) == parameter.name) {
            for (const std::int32_t number : numbersOutOf(parameter.values)) {
                requests.push_back({std::string("has ") + std::to_string(number) + " as its " + parameter.name,
                                    withNumber(request, place.begin, number)});
            }
        }
    }
    return requests;
}

MalformedRequests withUnknownCommands(const Bytes& request) {
    constexpr std::int32_t kGreatest = std::numeric_limits<std::int32_t>::max();
    MalformedRequests requests;
    for (const std::int32_t number : {-1, std::numeric_limits<std::int32_t>::min(), kGreatest, kGreatest - 0xFFFF}) {
        requests.push_back(
            {"has the command " + std::to_string(number), withNumber(request, commandAt(request), number)});
    }
    return requests;
}

MalformedRequests withUnknownCodes(const Bytes& request) {
    MalformedRequests requests;
    for (const std::uint32_t code : {kRequestCode + 1, 0xFFFFFFU}) {
        requests.push_back({"has the code " + std::to_string(code), request, code});
    }
    return requests;
}

MalformedRequests withUnknownItems(const Bytes& request) {
    MalformedRequests requests;
    const std::size_t at = commandAt(request) + kWord;
    for (const std::int32_t item :
         {-1, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
        requests.push_back({"names item " + std::to_string(item), withNumber(request, at, item)});
    }
    return requests;
}

} // namespace kelutv::tool::compliance
