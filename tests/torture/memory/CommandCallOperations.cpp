#include "client/CommandCalls.h"
#include "torture/memory/MemoryOperations.h"
#include "torture/memory/Seen.h"

#include <kelutv/link/TVBaseClient.h>

namespace kelutv::test {

using android::Parcel;

namespace {

constexpr int kCommand = 0x4321;

android::TVBaseClient& client() { return *android::TVBaseClient::self(); }

std::string rightOf(ReplyShape shape) {
    switch (shape) {
    case ReplyShape::Status:
        return "0";
    case ReplyShape::Value:
        return "7";
    case ReplyShape::Parcel:
        break;
    }
    return "0 parcel=7,8";
}

Operation operationOf(const CommandCall& call) {
    return observed(call.name.c_str(), [make = call.make](Seen& seen) { seen.result = make(seen.parcel); },
                    {{call.request, replyOf({0, 7, 8})}}, rightOf(call.shape), {"-1"});
}

const Parcel& hundredWords() {
    static const auto* const words = [] {
        auto* const parcel = new Parcel;
        for (const int number : hundredNumbers()) {
            parcel->writeInt32(number);
        }
        return parcel;
    }();
    return *words;
}

Wire withHundred(Wire wire) {
    for (const int number : hundredNumbers()) {
        wire.i32(number);
    }
    return wire;
}

Operation status(const char* name, const std::function<void(Seen&)>& call, const Wire& request) {
    return observed(name, call, {{request.bytes(), replyOf({0})}}, "0", {"-1"});
}

/** What the caller's parcel held stays, unless the memory for the new content was missing. */
Operation parcel(const char* name, const std::function<void(Seen&)>& call, const Wire& request) {
    return observed(name, call, {{request.bytes(), withHundred(Wire::reply().i32(0)).bytes()}},
                    "0 parcel=" + numbersUpTo(100), {"-1"});
}

std::vector<Operation> longCalls() {
    hundredWords();
    return {
        status(
            "LongStrings",
            [](Seen& seen) { seen.result = client().exeCmdSet(kCommand, "alpha", longText(), "bravo", longText()); },
            Wire::request(kCommand).cstr("alpha").cstr(longText()).cstr("bravo").cstr(longText())),
        status(
            "LongStringFirst", [](Seen& seen) { seen.result = client().exeCmdSet(kCommand, longText(), 1, 2, 3, 4); },
            Wire::request(kCommand).cstr(longText()).i32(1).i32(2).i32(3).i32(4)),
        status(
            "LongParcel", [](Seen& seen) { seen.result = client().exeCmdSet(kCommand, 5, 6, hundredWords()); },
            withHundred(Wire::request(kCommand).i32(5).i32(6))),
        parcel(
            "LongParcelBothWays",
            [](Seen& seen) { seen.result = client().exeCmdSet(kCommand, hundredWords(), seen.parcel); },
            withHundred(Wire::request(kCommand))),
        parcel(
            "LongReply", [](Seen& seen) { seen.result = client().exeCmdGet(kCommand, 5, seen.parcel); },
            Wire::request(kCommand).i32(5)),
        parcel(
            "LongBuffer",
            [](Seen& seen) {
                int size = 44;
                auto bytes = hundredNumbers();
                seen.result = client().exeCmdGet(kCommand, 1, 2, sizeof bytes, &size,
                                                 reinterpret_cast<unsigned char*>(bytes.data()), seen.parcel);
            },
            withHundred(Wire::request(kCommand).i32(1).i32(2).i32(400).i32(44))),
    };
}

} // namespace

std::vector<Operation> commandCallOperations() {
    std::vector<Operation> operations = longCalls();
    for (const CommandCall& call : commandCalls()) {
        operations.push_back(operationOf(call));
    }
    return operations;
}

} // namespace kelutv::test
