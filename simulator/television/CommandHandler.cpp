#include "simulator/television/CommandHandler.h"

#include "simulator/output/Complaints.h"

namespace kelutv::simulator {

std::int32_t numberAt(const wire::Request& request, std::size_t index) {
    return std::get<std::int32_t>(request.arguments[index].front());
}

wire::Reply numberReply(std::int32_t number) { return {0, "", {{number}}}; }

wire::Reply failureReply(wire::Result result, const std::exception& error) {
    complain(error.what());
    return wire::replyTo({result, error.what()});
}

} // namespace kelutv::simulator
