#include "tools/interposition/Notices.h"
#include "tools/interposition/Tap.h"
#include "tools/trace/Channel.h"
#include "tools/trace/RecordingService.h"

#include <pthread.h>

#include <cstdlib>
#include <cstring>

namespace kelutv::trace {

namespace {

Channel traceChannel;
Channel recordChannel;

void sendToAll(const RecordHeader& header, const RecordBytes& bytes) {
    traceChannel.send(header, bytes);
    recordChannel.send(header, bytes);
}

void sendTransaction(const interposition::TransactionView& transaction) {
    const RecordHeader header{nanoseconds(transaction.start.time_since_epoch()),
                              nanoseconds(transaction.begin.time_since_epoch()),
                              nanoseconds(transaction.duration),
                              transaction.status,
                              0,
                              0,
                              RecordKind::Transaction};
    sendToAll(header, {transaction.request, transaction.requestSize, transaction.reply, transaction.replySize});
}

void sendEvent(unsigned int event, const void* payload, std::size_t length) {
    sendToAll(recordOfNow(RecordKind::Event, static_cast<std::int32_t>(event)), {payload, length, nullptr, 0});
}

void sendLoss() { sendToAll(recordOfNow(RecordKind::Loss, 0), {}); }

void sendProcess() { sendToAll(recordOfNow(RecordKind::Process, 0), {}); }

bool openChannel(Channel& channel, const char* variable) {
    const char* const pipe = std::getenv(variable);
    return pipe != nullptr && *pipe != '\0' && channel.open(pipe);
}

/** A recording that is made of this program from outside goes before the one that its environment asks for. */
bool openRecording() {
    if (openChannel(recordChannel, kRecordVariable)) {
        return true;
    }
    const char* const file = std::getenv(kRecordFileVariable);
    return file != nullptr && *file != '\0' && openRecordingService(recordChannel, file);
}

[[gnu::constructor]] void start() {
    const bool isTraced = openChannel(traceChannel, kTraceVariable);
    if (openRecording() || isTraced) {
        interposition::setObserver(sendTransaction);
        interposition::setNoticeObserver({sendEvent, sendLoss});
        ::pthread_atfork(nullptr, nullptr, sendProcess);
        sendProcess();
    }
}

} // namespace

} // namespace kelutv::trace
