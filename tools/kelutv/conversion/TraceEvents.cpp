#include "tools/kelutv/conversion/CallText.h"
#include "tools/kelutv/conversion/Converter.h"
#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/events/EventNames.h"
#include "tools/kelutv/output/Json.h"
#include "tools/kelutv/text/Hex.h"
#include "wire/text/Describe.h"

#include <utility>

namespace kelutv::tool {

namespace {

constexpr double kMicrosecond = 1000;

class TraceEvents : public Converter {
public:
    explicit TraceEvents(Sink sink) : mSink(std::move(sink)) {}

    void begin() override { mSink("{\"displayTimeUnit\":\"ns\",\"traceEvents\":["); }

    void add(const recording::Line& line) override {
        if (const auto* const header = std::get_if<recording::Header>(&line.content)) {
            mFirst = mFirst == 0 ? startOf(*header) : mFirst;
            mStart = startOf(*header) - mFirst;
        } else if (const auto* const transaction = std::get_if<recording::Transaction>(&line.content)) {
            add(*transaction);
        } else if (const auto* const event = std::get_if<recording::Event>(&line.content)) {
            add(*event);
        } else if (const auto* const loss = std::get_if<recording::Loss>(&line.content)) {
            Json entry = entryAt(loss->moment, "the service is gone", "i");
            entry["s"] = "p";
            write(entry);
        }
    }

    void finish() override { mSink("\n]}\n"); }

private:
    Json entryAt(const recording::Moment& moment, const std::string& name, const char* phase) const {
        return {{"name", name},
                {"ph", phase},
                {"ts", static_cast<double>(mStart + moment.time) / kMicrosecond},
                {"pid", moment.process},
                {"tid", moment.thread}};
    }

    void add(const recording::Transaction& transaction) {
        const wire::Request request = decodeRequest(transaction.request).request;
        Json entry = entryAt(transaction.moment, nameOf(request), "X");
        entry["dur"] = static_cast<double>(transaction.duration) / kMicrosecond;
        entry["cat"] = "call";
        entry["args"] = {{"request", wire::describe(request)}, {"reply", replyText(request, transaction)}};
        write(entry);
    }

    void add(const recording::Event& event) {
        const wire::Event* const known = mEvents.find(event.event);
        Json entry = entryAt(event.moment, known != nullptr ? known->name : std::to_string(event.event), "i");
        entry["cat"] = "event";
        entry["s"] = "t";
        entry["args"] = {{"payload", hexOf(event.payload)}};
        write(entry);
    }

    void write(const Json& entry) {
        mSink((mIsFirst ? "\n" : ",\n") + entry.dump());
        mIsFirst = false;
    }

    Sink mSink;
    wire::EventTable mEvents = eventsOf("");
    /** Of the first section, and of this one behind that. */
    std::int64_t mFirst = 0;
    std::int64_t mStart = 0;
    bool mIsFirst = true;
};

} // namespace

std::unique_ptr<Converter> traceEventConverter(Sink sink) { return std::make_unique<TraceEvents>(std::move(sink)); }

} // namespace kelutv::tool
