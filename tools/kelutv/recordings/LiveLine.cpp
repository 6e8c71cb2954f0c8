#include "tools/kelutv/recordings/LiveLine.h"

#include "recording/Origin.h"
#include "tools/kelutv/recordings/DecodedForm.h"
#include "wire/Fingerprint.h"

#include <sys/utsname.h>

#include <cstdio>
#include <ctime>

namespace kelutv::tool {

namespace {

std::string textOfNow() {
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    std::tm parts{};
    ::gmtime_r(&now.tv_sec, &parts);
    char text[48];
    const std::size_t length = std::strftime(text, sizeof(text), "%Y-%m-%dT%H:%M:%S", &parts);
    std::snprintf(text + length, sizeof(text) - length, ".%09ldZ", static_cast<long>(now.tv_nsec));
    return text;
}

} // namespace

recording::Header headerOfNow() {
    utsname names{};
    ::uname(&names);
    recording::Header header;
    header.library = KELUTV_VERSION;
    header.catalogue = wire::interfaceFingerprint();
    header.token = recording::tokenOfPlatform();
    header.machine = names.machine;
    header.system = std::string(names.sysname) + ' ' + names.release;
    header.isLittleEndian = recording::isLittleEndian();
    header.start = textOfNow();
    return header;
}

recording::Line lineOf(const TracedTransaction& traced, std::int64_t sequence, std::chrono::nanoseconds begin) {
    const recording::Moment moment{sequence, (traced.begin - begin).count(), traced.process, traced.thread};
    if (traced.kind == trace::RecordKind::Event) {
        recording::Event event{moment, static_cast<std::uint32_t>(traced.status), traced.request, ""};
        event.decoded = decodedForm(event);
        return {event};
    }
    if (traced.kind == trace::RecordKind::Loss) {
        return {recording::Loss{moment}};
    }
    recording::Transaction transaction{moment, traced.duration.count(), traced.status, traced.request, {}, ""};
    if (traced.status == 0) {
        transaction.reply = traced.reply;
    }
    transaction.decoded = decodedForm(transaction);
    return {transaction};
}

TracedTransaction tracedOf(const recording::Transaction& transaction) {
    const std::chrono::nanoseconds time(transaction.moment.time);
    return {trace::RecordKind::Transaction,
            transaction.moment.process,
            transaction.moment.thread,
            time,
            time,
            std::chrono::nanoseconds(transaction.duration),
            transaction.status,
            transaction.request,
            transaction.reply.value_or(Bytes())};
}

} // namespace kelutv::tool
