#include "service/ReplyForm.h"

#include <algorithm>
#include <optional>

namespace kelutv::service {

namespace {

bool isText(wire::Encoding encoding) {
    return encoding == wire::Encoding::CString || encoding == wire::Encoding::String16 ||
           encoding == wire::Encoding::Bytes;
}

bool fits(wire::Encoding encoding, const wire::Value& value) {
    if (isText(encoding)) {
        const auto* const text = std::get_if<std::string>(&value);
        return text != nullptr && text->find('\0') == std::string::npos;
    }
    const bool isReal = encoding == wire::Encoding::Double || encoding == wire::Encoding::Doubles;
    return isReal ? std::holds_alternative<double>(value) : std::holds_alternative<std::int32_t>(value);
}

const char* nameOfKind(wire::Encoding encoding) {
    if (isText(encoding)) {
        return "a text without zeros in it";
    }
    return encoding == wire::Encoding::Double || encoding == wire::Encoding::Doubles ? "a real number" : "an integer";
}

std::string nameOf(const wire::ReplyField& field) { return field.name != nullptr ? field.name : "the answer"; }

/** Goes through the fields of a reply, one after the other. */
class FormCheck {
public:
    FormCheck(const wire::Request& request, const wire::Reply& reply) : mRequest(request), mReply(reply) {}

    std::string flaw() {
        const wire::Operation& operation = *mRequest.operation;
        if (mReply.result != 0 || operation.shape == wire::Shape::Status) {
            return mReply.fields.empty() ? "" : "something stands behind a result word that is the whole answer";
        }
        const std::size_t row = operation.reply.size();
        const std::size_t there = mReply.fields.size();
        if (operation.isList ? row == 0 || there % row != 0 : there != row) {
            return std::to_string(there) + " fields instead of " + std::to_string(row);
        }
        std::string found;
        for (std::size_t i = 0; i < there && found.empty(); ++i) {
            found = flawIn(operation.reply[i % row], mReply.fields[i]);
        }
        return found;
    }

private:
    std::string flawIn(const wire::ReplyField& field, const wire::Values& values) {
        if (const auto count = countOf(field); count && values.size() != *count) {
            return nameOf(field) + " has " + std::to_string(values.size()) + " of " + std::to_string(*count) +
                   " values";
        }
        if (!std::all_of(values.begin(), values.end(),
                         [&field](const wire::Value& value) { return fits(field.encoding, value); })) {
            return nameOf(field) + " is not " + nameOfKind(field.encoding);
        }
        if (field.count == wire::kCountOfRest) {
            mCounted = static_cast<std::size_t>(std::max(std::get<std::int32_t>(values.front()), 0));
        }
        return "";
    }

    /** How many values there have to be; any number where nothing says it, or more than a reply has room for. */
    std::optional<std::size_t> countOf(const wire::ReplyField& field) const {
        if (field.count == wire::kCountOfRest) {
            return 1;
        }
        if (field.count != wire::kRestOfReply) {
            return static_cast<std::size_t>(field.count);
        }
        const auto wanted = mCounted ? mCounted : wire::lengthOf(field, mRequest.arguments);
        return wanted <= wire::kMostReplyValues ? wanted : std::nullopt;
    }

    const wire::Request& mRequest;
    const wire::Reply& mReply;
    /** What a field said of how many values follow. */
    std::optional<std::size_t> mCounted;
};

} // namespace

std::string flawOf(const wire::Request& request, const wire::Reply& reply) { return FormCheck(request, reply).flaw(); }

wire::Reply replyHolding(const wire::Operation& operation, const wire::Values& values) {
    wire::Reply reply;
    auto next = values.begin();
    const auto left = [&] { return static_cast<std::size_t>(values.end() - next); };
    const auto deal = [&](const wire::ReplyField& field) {
        if (field.count == wire::kCountOfRest) {
            reply.fields.push_back({static_cast<std::int32_t>(left())});
            return;
        }
        const std::size_t count =
            field.count == wire::kRestOfReply ? left() : std::min(left(), static_cast<std::size_t>(field.count));
        reply.fields.emplace_back(next, next + static_cast<std::ptrdiff_t>(count));
        next += static_cast<std::ptrdiff_t>(count);
    };
    do {
        for (const wire::ReplyField& field : operation.reply) {
            deal(field);
        }
    } while (operation.isList && operation.reply.size() != 0 && left() != 0);
    if (left() != 0) {
        reply.fields.emplace_back(next, values.end());
    }
    return reply;
}

} // namespace kelutv::service
