#include "tools/kelutv/calls/Arguments.h"

#include "tools/kelutv/calls/ArgumentReader.h"
#include "tools/kelutv/calls/Call.h"
#include "tools/kelutv/calls/Scalars.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/text/Lists.h"

#include <algorithm>
#include <cstring>

namespace kelutv::tool {

namespace {

/** For texts and arrays, more than any answer can bring: a transaction has at most 1 MiB. */
constexpr std::size_t kRoom = std::size_t{1} << 20;
/** What the caller may ask to be filled. */
constexpr std::int64_t kMostEntries = std::int64_t{1} << 22;

bool isGiven(const wire::Parameter& parameter) { return parameter.direction != wire::Direction::Out; }

bool holdsText(const wire::Record& record) {
    return std::any_of(record.fields.begin(), record.fields.end(),
                       [](const wire::Field& field) { return field.scalar == wire::ScalarType::Char; });
}

std::string wordsFor(std::size_t count) { return std::to_string(count) + (count == 1 ? " argument" : " arguments"); }

std::string namesOf(const std::vector<const wire::Parameter*>& parameters) {
    std::vector<std::string> names;
    for (const wire::Parameter* parameter : parameters) {
        names.push_back(parameter->direction == wire::Direction::Length ? '[' + std::string(parameter->name) + ']'
                                                                        : parameter->name);
    }
    return names.empty() ? "" : ": " + joined(names, " ");
}

/** Fills frames; the lengths of arrays last, since they may be left out. */
class FrameBuilder {
public:
    FrameBuilder(const wire::Function& function, const std::vector<std::string>& arguments)
        : mFunction(function), mArguments(arguments), mFrame(function.parameters.size()) {}

    CallFrame build() {
        chooseParameters();
        readGiven();
        fillLengths();
        makeRoom();
        return std::move(mFrame);
    }

private:
    std::string label(std::size_t index) const {
        return std::string(mFunction.shortName) + ": " + mFunction.parameters[index].name;
    }

    void chooseParameters() {
        const auto all = givenParameters(mFunction);
        mGiven = all;
        if (mArguments.size() != all.size()) {
            mGiven.erase(
                std::remove_if(mGiven.begin(), mGiven.end(),
                               [](const wire::Parameter* each) { return each->direction == wire::Direction::Length; }),
                mGiven.end());
        }
        if (mArguments.size() != mGiven.size()) {
            throw UsageError(std::string(mFunction.shortName) + " takes " + wordsFor(all.size()) + namesOf(all) +
                             (mArguments.size() == 1 ? "; there is " : "; there are ") +
                             std::to_string(mArguments.size()));
        }
    }

    std::size_t indexOf(const wire::Parameter* parameter) const {
        return static_cast<std::size_t>(parameter - mFunction.parameters.begin());
    }

    void readGiven() {
        for (std::size_t i = 0; i < mGiven.size(); ++i) {
            const std::size_t index = indexOf(mGiven[i]);
            try {
                readArgument(*mGiven[i], mArguments[i], mFrame.storage(index));
            } catch (const UsageError& error) {
                throw UsageError(label(index) + ": " + error.what());
            }
        }
    }

    /** A length that was left out is the array's; one that was given must not go beyond it. */
    void fillLengths() {
        for (std::size_t i = 0; i < mFunction.parameters.size(); ++i) {
            const wire::Parameter& array = mFunction.parameters[i];
            if (array.values.kind != wire::ValueKind::Array || array.direction != wire::Direction::In) {
                continue;
            }
            for (std::size_t j = 0; j < mFunction.parameters.size(); ++j) {
                if (mFunction.parameters[j].direction == wire::Direction::Length &&
                    std::strcmp(mFunction.parameters[j].name, array.length) == 0) {
                    fillLength(i, j);
                }
            }
        }
    }

    void fillLength(std::size_t array, std::size_t length) {
        CallFrame::Storage& storage = mFrame.storage(length);
        const auto count = static_cast<std::int32_t>(mFrame.storage(array).count);
        if (storage.bytes.empty()) {
            storage.bytes.resize(sizeof count);
            std::memcpy(storage.bytes.data(), &count, sizeof count);
            return;
        }
        const auto given = mFrame.value<std::int32_t>(length);
        if (given > count && !mFrame.storage(array).isNull) {
            throw UsageError(label(length) + ": " + std::to_string(given) + " is more than the " +
                             std::to_string(count) + " entries of " + mFunction.parameters[array].name);
        }
    }

    void makeRoom() {
        for (std::size_t i = 0; i < mFunction.parameters.size(); ++i) {
            const wire::Parameter& parameter = mFunction.parameters[i];
            if (!isGiven(parameter) && parameter.values.kind != wire::ValueKind::List) {
                makeRoomFor(parameter, mFrame.storage(i));
            }
        }
    }

    std::size_t roomForArray(const wire::Parameter& parameter) const {
        const auto entries = lengthOf(mFunction, parameter, mFrame);
        if (entries && *entries > kMostEntries) {
            throw UsageError(std::string(mFunction.shortName) + ": " + parameter.length + ": " +
                             std::to_string(*entries) + " entries are too many, " + std::to_string(kMostEntries) +
                             " is the most");
        }
        return std::max(kRoom, static_cast<std::size_t>(std::max<std::int64_t>(entries.value_or(0), 0)) *
                                   sizeOf(parameter.values.scalar));
    }

    std::size_t roomFor(const wire::Parameter& parameter) const {
        switch (parameter.values.kind) {
        case wire::ValueKind::Array:
            return roomForArray(parameter);
        case wire::ValueKind::Record:
            return parameter.values.record->size;
        case wire::ValueKind::Single:
            return sizeOf(parameter.values.scalar);
        default:
            return kRoom;
        }
    }

    void makeRoomFor(const wire::Parameter& parameter, CallFrame::Storage& storage) {
        const wire::Record* const record = parameter.values.record;
        const bool isZeroed = (record != nullptr && holdsText(*record)) ||
                              parameter.values.scalar == wire::ScalarType::Byte ||
                              parameter.values.kind == wire::ValueKind::Text;
        storage.bytes.assign(roomFor(parameter), isZeroed ? 0 : kUntouched);
        if (parameter.values.kind == wire::ValueKind::Text) {
            storage.bytes[0] = kUntouched;
        }
    }

    const wire::Function& mFunction;
    const std::vector<std::string>& mArguments;
    CallFrame mFrame;
    std::vector<const wire::Parameter*> mGiven;
};

std::optional<std::int64_t> factorOf(const wire::Function& function, const std::string& factor,
                                     const CallFrame& frame) {
    if (factor.find_first_not_of("0123456789") == std::string::npos) {
        return std::int64_t{std::stoll(factor)};
    }
    for (std::size_t i = 0; i < function.parameters.size(); ++i) {
        const CallFrame::Storage& storage = frame.storage(i);
        if (factor != function.parameters[i].name || storage.isNull || storage.bytes.empty()) {
            continue;
        }
        const bool isUnwritten =
            !isGiven(function.parameters[i]) && isUntouched(storage.bytes.data(), sizeof(std::int32_t));
        return isUnwritten ? std::nullopt : std::optional<std::int64_t>(frame.value<std::int32_t>(i));
    }
    return std::nullopt;
}

} // namespace

std::vector<const wire::Parameter*> givenParameters(const wire::Function& function) {
    std::vector<const wire::Parameter*> given;
    for (const wire::Parameter& parameter : function.parameters) {
        if (isGiven(parameter)) {
            given.push_back(&parameter);
        }
    }
    return given;
}

CallFrame frameOf(const wire::Function& function, const std::vector<std::string>& arguments) {
    return FrameBuilder(function, arguments).build();
}

std::optional<std::int64_t> lengthOf(const wire::Function& function, const wire::Parameter& parameter,
                                     const CallFrame& frame) {
    std::optional<std::int64_t> length;
    for (const std::string& factor : split(parameter.length, '*')) {
        const auto value = factorOf(function, factor, frame);
        if (!value) {
            return std::nullopt;
        }
        length = length.value_or(1) * *value;
    }
    return length;
}

} // namespace kelutv::tool
