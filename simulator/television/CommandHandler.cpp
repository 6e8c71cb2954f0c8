#include "simulator/television/CommandHandler.h"

#include "simulator/output/Complaints.h"
#include "wire/text/Shown.h"

namespace kelutv::simulator {

std::int32_t numberAt(const wire::Request& request, std::size_t index) {
    return std::get<std::int32_t>(request.arguments[index].front());
}

wire::Reply numberReply(std::int32_t number) { return {0, "", {{number}}}; }

wire::Reply failureReply(wire::Result result, const std::exception& error) {
    const std::string reason = wire::shown(error.what(), wire::kMostOfPath);
    complain(reason);
    return wire::replyTo({result, reason});
}

} // namespace kelutv::simulator
