#include "client/CommandCalls.h"

#include <kelutv/link/TVBaseClient.h>

namespace kelutv::test {

using android::Parcel;

namespace {

constexpr int kCommand = 0x4321;

android::TVBaseClient& client() { return *android::TVBaseClient::self(); }

Wire request() { return Wire::request(kCommand); }

/** An argument parcel of an int, a string and an int, which `appended` matches. */
void fill(Parcel& argument) {
    argument.writeInt32(91);
    argument.writeCString("charlie");
    argument.writeInt32(92);
}

Bytes appended(Wire wire) { return wire.i32(91).cstr("charlie").i32(92).bytes(); }

CommandCall status(const char* name, int (*make)(Parcel&), const Bytes& bytes) {
    return {name, ReplyShape::Status, true, make, bytes};
}

CommandCall value(const char* name, int (*make)(Parcel&), const Bytes& bytes) {
    return {name, ReplyShape::Value, false, make, bytes};
}

CommandCall parcel(const char* name, int (*make)(Parcel&), const Bytes& bytes) {
    return {name, ReplyShape::Parcel, false, make, bytes};
}

std::vector<CommandCall> setsOfIntegers() {
    return {
        status(
            "Set", [](Parcel&) { return client().exeCmdSet(kCommand); }, request().bytes()),
        status(
            "SetInt", [](Parcel&) { return client().exeCmdSet(kCommand, 11); }, request().i32(11).bytes()),
        status(
            "SetIntInt", [](Parcel&) { return client().exeCmdSet(kCommand, 11, -22); },
            request().i32(11).i32(-22).bytes()),
        status(
            "SetIntIntInt", [](Parcel&) { return client().exeCmdSet(kCommand, 11, 22, 33); },
            request().i32(11).i32(22).i32(33).bytes()),
        status(
            "SetFourInts", [](Parcel&) { return client().exeCmdSet(kCommand, 11, 22, 33, 44); },
            request().i32(11).i32(22).i32(33).i32(44).bytes()),
        status(
            "SetFiveInts", [](Parcel&) { return client().exeCmdSet(kCommand, 11, 22, 33, 44, 55); },
            request().i32(11).i32(22).i32(33).i32(44).i32(55).bytes()),
    };
}

std::vector<CommandCall> setsWithStrings() {
    return {
        status(
            "SetMutableString",
            [](Parcel&) {
                char text[] = "alpha";
                return client().exeCmdSet(kCommand, text);
            },
            request().cstr("alpha").bytes()),
        status(
            "SetString", [](Parcel&) { return client().exeCmdSet(kCommand, "alpha"); },
            request().cstr("alpha").bytes()),
        status(
            "SetIntString", [](Parcel&) { return client().exeCmdSet(kCommand, 11, "bravo"); },
            request().i32(11).cstr("bravo").bytes()),
        status(
            "SetIntStringString", [](Parcel&) { return client().exeCmdSet(kCommand, 11, "alpha", "bravo"); },
            request().i32(11).cstr("alpha").cstr("bravo").bytes()),
        status(
            "SetIntIntString", [](Parcel&) { return client().exeCmdSet(kCommand, 11, 22, "alpha"); },
            request().i32(11).i32(22).cstr("alpha").bytes()),
        status(
            "SetIntIntStringInt", [](Parcel&) { return client().exeCmdSet(kCommand, 11, 22, "alpha", 33); },
            request().i32(11).i32(22).cstr("alpha").i32(33).bytes()),
        status(
            "SetFourStrings", [](Parcel&) { return client().exeCmdSet(kCommand, "alpha", "", "bravo", "charlies"); },
            request().cstr("alpha").cstr("").cstr("bravo").cstr("charlies").bytes()),
        status(
            "SetStringFourInts", [](Parcel&) { return client().exeCmdSet(kCommand, "alpha", 11, 22, 33, 44); },
            request().cstr("alpha").i32(11).i32(22).i32(33).i32(44).bytes()),
    };
}

std::vector<CommandCall> setsWithParcels() {
    return {
        status(
            "SetParcel",
            [](Parcel&) {
                Parcel argument;
                fill(argument);
                return client().exeCmdSet(kCommand, argument);
            },
            appended(request())),
        status(
            "SetIntIntParcel",
            [](Parcel&) {
                Parcel argument;
                fill(argument);
                return client().exeCmdSet(kCommand, 11, 22, argument);
            },
            appended(request().i32(11).i32(22))),
        {"SetParcelParcel", ReplyShape::Parcel, true,
         [](Parcel& result) {
             Parcel argument;
             fill(argument);
             return client().exeCmdSet(kCommand, argument, result);
         },
         appended(request())},
    };
}

std::vector<CommandCall> gets() {
    return {
        value(
            "Get", [](Parcel&) { return client().exeCmdGet(kCommand); }, request().bytes()),
        value(
            "GetInt", [](Parcel&) { return client().exeCmdGet(kCommand, 11); }, request().i32(11).bytes()),
        value(
            "GetIntInt", [](Parcel&) { return client().exeCmdGet(kCommand, 11, 22); },
            request().i32(11).i32(22).bytes()),
        value(
            "GetIntIntInt", [](Parcel&) { return client().exeCmdGet(kCommand, 11, 22, 33); },
            request().i32(11).i32(22).i32(33).bytes()),
        parcel(
            "GetParcel", [](Parcel& result) { return client().exeCmdGet(kCommand, result); }, request().bytes()),
        parcel(
            "GetIntParcel", [](Parcel& result) { return client().exeCmdGet(kCommand, 11, result); },
            request().i32(11).bytes()),
        parcel(
            "GetIntIntParcel", [](Parcel& result) { return client().exeCmdGet(kCommand, 11, 22, result); },
            request().i32(11).i32(22).bytes()),
        parcel(
            "GetIntIntIntParcel", [](Parcel& result) { return client().exeCmdGet(kCommand, 11, 22, 33, result); },
            request().i32(11).i32(22).i32(33).bytes()),
        parcel(
            "GetBuffer",
            [](Parcel& result) {
                int size = 44;
                unsigned char data[] = {0xF0, 0xF1, 0xF2, 0xF3, 0xF4};
                return client().exeCmdGet(kCommand, 11, 22, sizeof data, &size, data, result);
            },
            request().i32(11).i32(22).i32(5).i32(44).raw("\xF0\xF1\xF2\xF3\xF4", 5).bytes()),
    };
}

std::vector<CommandCall> all() {
    std::vector<CommandCall> calls;
    for (const auto& group : {setsOfIntegers(), setsWithStrings(), setsWithParcels(), gets()}) {
        calls.insert(calls.end(), group.begin(), group.end());
    }
    return calls;
}

} // namespace

const std::vector<CommandCall>& commandCalls() {
    static const std::vector<CommandCall> calls = all();
    return calls;
}

std::vector<CommandCall> commandCallsOf(ReplyShape shape) {
    std::vector<CommandCall> calls;
    for (const CommandCall& call : commandCalls()) {
        if (call.shape == shape) {
            calls.push_back(call);
        }
    }
    return calls;
}

std::string nameOf(const ::testing::TestParamInfo<CommandCall>& info) { return info.param.name; }

void PrintTo(const CommandCall& call, std::ostream* out) { *out << call.name; }

} // namespace kelutv::test
