#include "fuzz/support/Answers.h"
#include "fuzz/support/Frames.h"
#include "fuzz/support/Input.h"
#include "fuzz/support/Target.h"

#include "tools/kelutv/calls/Thunks.h"

#include <kelutv/link/TVBaseClient.h>

/** Any C function, and any method that has none, with any arguments, answered by anything. */
namespace kelutv::fuzz {
namespace {

/** Of each reply: its status, and the bytes of one that came. */
Answer readAnswer(Input& input) {
    Answer answer;
    answer.status = input.small();
    answer.reply = input.block();
    return answer;
}

void run(Input& input) {
    const wire::Rows<wire::Function> functions = wire::allFunctions();
    const wire::Function& function = functions[input.number<std::uint16_t>() % functions.size()];
    const Bytes given = input.take(input.number<std::uint8_t>());
    Input arguments(given.data(), given.size());
    auto frame = readFrame(function, arguments);
    if (!frame) {
        return;
    }
    answerBy([&input](const android::Parcel& request) {
        touch(request.data(), request.dataSize());
        return readAnswer(input);
    });
    tool::thunkOf(function)(*frame);
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    kelutv::fuzz::require(android::TVBaseClient::self()->getBpTvbaseService() != nullptr, "a service is found");
    kelutv::fuzz::Input input(data, size);
    while (!input.isEmpty()) {
        kelutv::fuzz::run(input);
    }
    return 0;
}
