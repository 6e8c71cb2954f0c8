#include "tools/kelutv/trace/TraceLog.h"

#include "tools/kelutv/decoding/Decoding.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Streams.h"
#include "tools/kelutv/text/Patterns.h"
#include "tools/kelutv/trace/TransactionText.h"
#include "wire/text/Shown.h"

#include <binder/IBinder.h>

#include <cerrno>
#include <cstring>

namespace kelutv::tool {

namespace {

using Seconds = std::chrono::duration<double>;

double secondsOf(std::chrono::nanoseconds time) { return Seconds(time).count(); }

Json traceDocument(const TracedTransaction& transaction, const DecodedRequest& decoded) {
    const wire::Operation& operation = operationFor(decoded.request);
    Json document;
    document["process"] = transaction.process;
    document["thread"] = transaction.thread;
    document["start"] = secondsOf(transaction.start);
    document["duration"] = secondsOf(transaction.duration);
    document["status"] = transaction.status;
    document["request"] = documentOf(decoded);
    document["reply"] = transaction.status == android::NO_ERROR
                            ? documentOf(operation, decodeReply(operation, transaction.reply))
                            : Json();
    return document;
}

int closeUnlessShared(std::FILE* file) { return file != ownError() ? std::fclose(file) : 0; }

std::FILE* open(const std::string& path) {
    std::FILE* const file = path.empty() ? ownError() : std::fopen(path.c_str(), "we");
    if (file == nullptr) {
        throw ToolError(Exit::Failure,
                        "cannot write to " + wire::shown(path, wire::kMostOfPath) + ": " + std::strerror(errno));
    }
    return file;
}

} // namespace

TraceLog::TraceLog(const Options& options)
    : mFile(nullptr, closeUnlessShared), mPath(options.file), mFilters(patternsOf("--filter", options.filters)),
      mLeft(options.count), mLimited(options.count != 0), mJson(options.json) {
    mFile.reset(open(options.file));
}

void TraceLog::write(const TracedTransaction& transaction) {
    const DecodedRequest decoded = decodeRequest(transaction.request);
    if (!takes(decoded.request)) {
        return;
    }
    writeLine(mJson ? traceDocument(transaction, decoded).dump()
                    : callerText(transaction.process, transaction.thread) + lineOf(transaction, decoded));
}

bool TraceLog::takes(const TracedTransaction& transaction) { return takes(decodeRequest(transaction.request).request); }

bool TraceLog::takes(const wire::Request& request) {
    const bool isTaken = isWanted(request) && (!mLimited || mLeft > 0);
    mLeft -= isTaken && mLimited ? 1 : 0;
    return isTaken;
}

void TraceLog::writeSummary(const std::vector<std::string>& lines, const Json& document) {
    if (mJson) {
        writeLine(document.dump());
        return;
    }
    for (const std::string& line : lines) {
        writeLine(line);
    }
}

void TraceLog::writeLeftOut(std::uint32_t count) {
    Json document;
    document["leftOut"] = std::int64_t{count};
    writeLine(mJson ? document.dump()
                    : "... " + std::to_string(count) + (count == 1 ? " command" : " commands") + " left out");
}

void TraceLog::writeLine(const std::string& line) {
    std::fprintf(mFile.get(), "%s\n", line.c_str());
    std::fflush(mFile.get());
}

void TraceLog::finish() {
    if (std::ferror(mFile.get()) != 0) {
        throw ToolError(Exit::Failure, "cannot write all of the trace to " +
                                           (mPath.empty() ? "standard error" : wire::shown(mPath, wire::kMostOfPath)));
    }
}

bool TraceLog::isWanted(const wire::Request& request) const {
    return mFilters.empty() || matchesAny(mFilters, request);
}

} // namespace kelutv::tool
