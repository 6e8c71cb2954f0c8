#include "tools/recordings/Conversation.h"

#include "wire/text/Hexadecimal.h"

#include <map>
#include <utility>

namespace kelutv::test {

std::multiset<std::vector<std::string>> conversationsOf(const std::vector<recording::Line>& lines) {
    std::map<std::pair<int, int>, std::vector<std::string>> threads;
    for (const recording::Line& line : lines) {
        if (const auto* const call = std::get_if<recording::Transaction>(&line.content)) {
            threads[{call->moment.process, call->moment.thread}].push_back(
                wire::hexadecimalOf(call->request) + " -> " +
                (call->reply ? wire::hexadecimalOf(*call->reply) : std::to_string(call->status)));
        }
    }
    std::multiset<std::vector<std::string>> conversations;
    for (auto& [thread, conversation] : threads) {
        conversations.insert(std::move(conversation));
    }
    return conversations;
}

} // namespace kelutv::test
