#include "fuzz/support/Answers.h"
#include "fuzz/support/Input.h"
#include "fuzz/support/Target.h"

#include <kelutv/link/TVBaseClient.h>

#include <array>
#include <cstring>
#include <string>

/** Every command call of the client, with any arguments, answered by anything. */
namespace kelutv::fuzz {
namespace {

using android::Parcel;
using android::TVBaseClient;

enum class Shape { Status, Value, Values };

/** What the calls of the input say, in the order in which a call takes them. */
struct Arguments {
    int numbers[5];
    std::string texts[4];
    Bytes bytes;
    Parcel parcel;
};

struct Call {
    Shape shape;
    int (*make)(TVBaseClient& client, int command, Arguments& with, Parcel& result);
};

int sendBuffer(TVBaseClient& client, int command, Arguments& with, Parcel& result) {
    int size = with.numbers[2];
    const int length = static_cast<int>(with.bytes.size());
    return client.exeCmdGet(command, with.numbers[0], with.numbers[1], length, &size, with.bytes.data(), result);
}

using Client = TVBaseClient;
constexpr std::array<Call, 26> kCalls{{
    {Shape::Status, [](Client& client, int command, Arguments&, Parcel&) { return client.exeCmdSet(command); }},
    {Shape::Status,
     [](Client& client, int command, Arguments& with, Parcel&) { return client.exeCmdSet(command, with.numbers[0]); }},
    {Shape::Status, [](Client& client, int command, Arguments& with,
                       Parcel&) { return client.exeCmdSet(command, with.texts[0].data()); }},
    {Shape::Status, [](Client& client, int command, Arguments& with,
                       Parcel&) { return client.exeCmdSet(command, with.texts[0].c_str()); }},
    {Shape::Status, [](Client& client, int command, Arguments& with,
                       Parcel&) { return client.exeCmdSet(command, with.numbers[0], with.texts[0].c_str()); }},
    {Shape::Status,
     [](Client& client, int command, Arguments& with, Parcel&) {
         return client.exeCmdSet(command, with.numbers[0], with.texts[0].c_str(), with.texts[1].c_str());
     }},
    {Shape::Status, [](Client& client, int command, Arguments& with,
                       Parcel&) { return client.exeCmdSet(command, with.numbers[0], with.numbers[1]); }},
    {Shape::Status,
     [](Client& client, int command, Arguments& with, Parcel&) {
         return client.exeCmdSet(command, with.numbers[0], with.numbers[1], with.numbers[2]);
     }},
    {Shape::Status,
     [](Client& client, int command, Arguments& with, Parcel&) {
         return client.exeCmdSet(command, with.numbers[0], with.numbers[1], with.numbers[2], with.numbers[3]);
     }},
    {Shape::Status,
     [](Client& client, int command, Arguments& with, Parcel&) {
         return client.exeCmdSet(command, with.numbers[0], with.numbers[1], with.numbers[2], with.numbers[3],
                                 with.numbers[4]);
     }},
    {Shape::Status,
     [](Client& client, int command, Arguments& with, Parcel&) {
         return client.exeCmdSet(command, with.numbers[0], with.numbers[1], with.texts[0].c_str());
     }},
    {Shape::Status,
     [](Client& client, int command, Arguments& with, Parcel&) {
         return client.exeCmdSet(command, with.numbers[0], with.numbers[1], with.texts[0].c_str(), with.numbers[2]);
     }},
    {Shape::Status,
     [](Client& client, int command, Arguments& with, Parcel&) {
         return client.exeCmdSet(command, with.texts[0].c_str(), with.texts[1].c_str(), with.texts[2].c_str(),
                                 with.texts[3].c_str());
     }},
    {Shape::Status,
     [](Client& client, int command, Arguments& with, Parcel&) {
         return client.exeCmdSet(command, with.texts[0].c_str(), with.numbers[0], with.numbers[1], with.numbers[2],
                                 with.numbers[3]);
     }},
    {Shape::Status, [](Client& client, int command, Arguments& with,
                       Parcel&) { return client.exeCmdSet(command, static_cast<const Parcel&>(with.parcel)); }},
    {Shape::Status,
     [](Client& client, int command, Arguments& with, Parcel&) {
         return client.exeCmdSet(command, with.numbers[0], with.numbers[1], static_cast<const Parcel&>(with.parcel));
     }},
    {Shape::Values, [](Client& client, int command, Arguments& with,
                       Parcel& result) { return client.exeCmdSet(command, with.parcel, result); }},
    {Shape::Value, [](Client& client, int command, Arguments&, Parcel&) { return client.exeCmdGet(command); }},
    {Shape::Value,
     [](Client& client, int command, Arguments& with, Parcel&) { return client.exeCmdGet(command, with.numbers[0]); }},
    {Shape::Value, [](Client& client, int command, Arguments& with,
                      Parcel&) { return client.exeCmdGet(command, with.numbers[0], with.numbers[1]); }},
    {Shape::Value,
     [](Client& client, int command, Arguments& with, Parcel&) {
         return client.exeCmdGet(command, with.numbers[0], with.numbers[1], with.numbers[2]);
     }},
    {Shape::Values,
     [](Client& client, int command, Arguments&, Parcel& result) { return client.exeCmdGet(command, result); }},
    {Shape::Values, [](Client& client, int command, Arguments& with,
                       Parcel& result) { return client.exeCmdGet(command, with.numbers[0], result); }},
    {Shape::Values, [](Client& client, int command, Arguments& with,
                       Parcel& result) { return client.exeCmdGet(command, with.numbers[0], with.numbers[1], result); }},
    {Shape::Values,
     [](Client& client, int command, Arguments& with, Parcel& result) {
         return client.exeCmdGet(command, with.numbers[0], with.numbers[1], with.numbers[2], result);
     }},
    {Shape::Values, sendBuffer},
}};

int wordAt(const Bytes& bytes, std::size_t index) {
    int word = 0;
    if (bytes.size() >= (index + 1) * sizeof word) {
        std::memcpy(&word, bytes.data() + index * sizeof word, sizeof word);
    }
    return word;
}

int expected(Shape shape, const Answer& answer) {
    if (answer.status != android::NO_ERROR) {
        return -1;
    }
    const int status = wordAt(answer.reply, 0);
    if (shape == Shape::Status) {
        return status;
    }
    return status != 0 ? -1 : shape == Shape::Value ? wordAt(answer.reply, 1) : 0;
}

void checkResult(const Parcel& result, int returned, const Bytes& reply) {
    constexpr std::size_t kWord = sizeof(int);
    const std::size_t behind = reply.size() < kWord ? 0 : reply.size() - kWord;
    require(result.dataPosition() == 0, "what is read begins at the start");
    require(result.dataSize() == (returned == 0 ? behind : kWord), "the result is the reply behind its first word");
    touch(result.data(), result.dataSize());
}

void run(Input& input) {
    const Call& call = kCalls[input.below(kCalls.size())];
    const auto command = input.number<std::int32_t>();
    Arguments with;
    for (int& number : with.numbers) {
        number = input.small();
    }
    for (std::string& text : with.texts) {
        text = input.text();
    }
    with.bytes = input.take(input.number<std::uint8_t>());
    with.parcel.setData(with.bytes.data(), with.bytes.size());
    Answer answer;
    answer.status = input.small();
    answer.reply = input.block();
    answerBy([&answer](const Parcel& request) {
        touch(request.data(), request.dataSize());
        return answer;
    });
    Parcel result;
    result.writeInt32(7);
    result.setDataPosition(0);
    const int returned = call.make(*TVBaseClient::self(), command, with, result);
    require(returned == expected(call.shape, answer), "the call gives what its shape makes of the reply");
    if (call.shape == Shape::Values) {
        checkResult(result, returned, answer.reply);
    }
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kelutv::fuzz::Input input(data, size);
    while (!input.isEmpty()) {
        kelutv::fuzz::run(input);
    }
    return 0;
}
