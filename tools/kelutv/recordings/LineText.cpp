#include "tools/kelutv/recordings/LineText.h"

#include "tools/kelutv/conversion/CallText.h"
#include "tools/kelutv/events/EventText.h"
#include "tools/kelutv/recordings/DecodedForm.h"
#include "tools/kelutv/recordings/LiveLine.h"
#include "tools/kelutv/trace/TransactionText.h"
#include "wire/text/Shown.h"

#include <cstdio>

namespace kelutv::tool {

namespace {

std::string timeText(std::int64_t time) {
    char text[48];
    std::snprintf(text, sizeof(text), "%12.6f ", static_cast<double>(time) / kNanosecondsOfSecond);
    return text;
}

std::string placeText(const recording::Moment& moment) {
    return timeText(moment.time) + callerText(moment.process, moment.thread);
}

std::string textOf(const recording::Header& header) {
    return "recorded from " + wire::shown(header.start) + " on, on " + wire::shown(header.machine) + ' ' +
           wire::shown(header.system) + ", by version " + wire::shown(header.library);
}

std::string textOf(const recording::Transaction& transaction) {
    return placeText(transaction.moment) + lineOf(tracedOf(transaction), decodeRequest(transaction.request));
}

std::string textOf(const recording::Event& event) {
    const ReceivedEvent received{{}, event.event, event.payload};
    return placeText(event.moment) + "event " + meaningText(KnownEvent(received, recordedEvents()));
}

std::string textOf(const recording::Loss& loss) { return placeText(loss.moment) + "the service is gone"; }

std::string textOf(const recording::Gap& gap) {
    return timeText(gap.time) + "... " + std::to_string(gap.count) + " left out";
}

std::string textOf(const recording::End& end) { return timeText(end.time) + "the end: " + wire::shown(end.reason); }

std::string textOf(const recording::Unknown& /*unknown*/) { return ""; }

} // namespace

std::string lineText(const recording::Line& line) {
    return std::visit([](const auto& content) { return textOf(content); }, line.content);
}

} // namespace kelutv::tool
