#include "fuzz/support/Target.h"

#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/HexDump.h"

#include <string>

/** What the tool makes of the bytes of a request and, behind a line with a dash, of those of its reply. */
namespace kelutv::fuzz {
namespace {

using namespace tool;

constexpr char kSeparator[] = "\n-\n";

void show(const std::vector<NamedValue>& values) {
    for (const NamedValue& value : values) {
        lineOf(value);
        documentOf(value).dump();
    }
}

void run(const std::string& request, const std::string& reply) {
    const DecodedRequest decoded = decodeRequest(bytesOfDump(request));
    show(argumentsOf(decoded.request));
    sendersOf(decoded.request);
    documentOf(decoded).dump();
    const Bytes bytes = bytesOfDump(reply);
    const wire::Operation& operation = operationFor(decoded.request);
    const wire::ReplyReading reading = decodeReply(operation, bytes);
    require(!reading.flaw || reading.flaw->offset <= bytes.size(), "what is wrong lies within the reply");
    show(fieldsOf(operation, reading.reply));
    textOf(operation, reading);
    documentOf(operation, reading).dump();
    // A dump of the bytes says the same again.
    std::string dump;
    for (const std::string& line : hexDump(bytes, 0, false)) {
        dump += line + '\n';
    }
    require(bytes.empty() || bytesOfDump(dump) == bytes, "a dump is read as the bytes that it shows");
}

} // namespace
} // namespace kelutv::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const std::size_t end = text.find(kelutv::fuzz::kSeparator);
    try {
        kelutv::fuzz::run(text.substr(0, end),
                          end == std::string::npos ? "" : text.substr(end + sizeof(kelutv::fuzz::kSeparator) - 1));
    } catch (const kelutv::tool::UsageError&) {
    }
    return 0;
}
