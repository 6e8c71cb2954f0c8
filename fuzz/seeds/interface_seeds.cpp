#include "fuzz/seeds/Seed.h"
#include "fuzz/seeds/Wire.h"

#include "tools/kelutv/text/Hex.h"
#include "wire/Function.h"
#include "wire/Interface.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

namespace kelutv::fuzz {
namespace {

/** Few files of some length are easier to keep than many short ones. */
constexpr std::size_t kCallsPerSeed = 8;

/** Puts so many of the pieces together to one input each. */
Seeds grouped(const Seeds& pieces, std::size_t count) {
    Seeds groups;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (i % count == 0) {
            groups.emplace_back();
        }
        groups.back().insert(groups.back().end(), pieces[i].begin(), pieces[i].end());
    }
    return groups;
}

/** What an item command does, too: `use` gets the command, the operation and the arguments of a request. */
template <typename Use> void forEachOperation(std::int32_t number, const Use& use) {
    for (const wire::Command& command : wire::allCommands()) {
        use(command.value, command.operation, argumentsOf(command.operation, number));
    }
    for (const wire::Item& item : wire::allItems()) {
        Bytes arguments = argumentsOf(item.operation, number);
        const Bytes value = Seed().number(item.value).bytes();
        std::copy(value.begin(), value.end(), arguments.begin());
        use(item.command, item.operation, arguments);
    }
}

const wire::Operation& operationOf(const wire::SentRequest& sent) {
    const wire::Rows<wire::Item> items = wire::allItems();
    const auto* const item = std::find_if(items.begin(), items.end(), [&sent](const wire::Item& each) {
        return sent.item != nullptr && each.command == sent.commandValue && each.value == sent.itemValue;
    });
    return item != items.end() ? item->operation : wire::findCommand(sent.commandValue)->operation;
}

/** With `count` in the word behind the result, where lists and texts are counted. */
Bytes callOf(std::size_t index, const wire::Function& function, const Bytes& arguments, std::int32_t count) {
    Seed seed;
    seed.number(static_cast<std::uint16_t>(index)).byte(arguments.size()).bytes(arguments);
    for (const wire::SentRequest& sent : function.requests) {
        Bytes reply = replyOf(operationOf(sent));
        if (reply.size() >= 2 * sizeof count) {
            std::memcpy(reply.data() + sizeof count, &count, sizeof count);
        }
        seed.byte(0).block(reply);
    }
    return seed.bytes();
}

} // namespace

Seeds functionSeeds() {
    constexpr std::size_t kArgumentBytes = 32;
    const Bytes zeros(kArgumentBytes);
    Bytes numbers(kArgumentBytes);
    std::iota(numbers.begin(), numbers.end(), std::uint8_t{1});
    Seeds seeds;
    const std::pair<Bytes, std::int32_t> variants[] = {{zeros, 0}, {numbers, 1}, {numbers, 100'000}};
    for (const auto& [arguments, count] : variants) {
        Seeds calls;
        const wire::Rows<wire::Function> functions = wire::allFunctions();
        for (std::size_t i = 0; i < functions.size(); ++i) {
            calls.push_back(callOf(i, functions[i], arguments, count));
        }
        const Seeds more = grouped(calls, kCallsPerSeed);
        seeds.insert(seeds.end(), more.begin(), more.end());
    }
    return seeds;
}

Seeds requestSeeds() {
    Seeds seeds;
    for (const std::int32_t number : {0, 1, 5}) {
        Seeds requests;
        forEachOperation(number, [&requests](std::int32_t command, const wire::Operation&, const Bytes& arguments) {
            requests.push_back(Seed().byte(1).number(command).block(arguments).bytes());
        });
        const Seeds more = grouped(requests, kCallsPerSeed);
        seeds.insert(seeds.end(), more.begin(), more.end());
    }
    return seeds;
}

Seeds decodeSeeds() {
    Seeds seeds;
    forEachOperation(1, [&seeds](std::int32_t command, const wire::Operation& operation, const Bytes& arguments) {
        const std::string text = tool::hexOf(requestOf(command, arguments)) + "\n-\n" + tool::hexOf(replyOf(operation));
        seeds.emplace_back(text.begin(), text.end());
    });
    return seeds;
}

Seeds commandCallSeeds() {
    constexpr std::size_t kCalls = 26;
    Seeds seeds;
    for (std::size_t call = 0; call < kCalls; ++call) {
        Seed seed;
        seed.byte(call).number(std::int32_t{0x2008});
        for (std::size_t number = 1; number <= 5; ++number) {
            seed.byte(number);
        }
        for (const char* const text : {"one", "two", "three", "four"}) {
            seed.text(text);
        }
        seed.byte(4).bytes({1, 2, 3, 4}).byte(0).block({0, 0, 0, 0, 35, 0, 0, 0});
        seeds.push_back(seed.bytes());
    }
    return seeds;
}

Seeds commandWords() {
    Seeds words;
    for (const wire::Command& command : wire::allCommands()) {
        words.push_back(Seed().number(command.value).bytes());
    }
    return words;
}

} // namespace kelutv::fuzz
