#include "tools/kelutv/recordings/DecodedForm.h"

#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/events/EventText.h"

namespace kelutv::tool {

const wire::EventTable& recordedEvents() {
    static const wire::EventTable events = eventsOf("");
    return events;
}

std::string decodedForm(const recording::Transaction& transaction) {
    const DecodedRequest decoded = decodeRequest(transaction.request);
    const wire::Operation& operation = operationFor(decoded.request);
    Json form;
    form["request"] = documentOf(decoded);
    form["reply"] = transaction.reply ? documentOf(operation, decodeReply(operation, *transaction.reply)) : Json();
    return form.dump();
}

std::string decodedForm(const recording::Event& event) {
    const ReceivedEvent received{{}, event.event, event.payload};
    return meaningDocument(KnownEvent(received, recordedEvents())).dump();
}

} // namespace kelutv::tool
