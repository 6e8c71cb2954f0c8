#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace kelutv::tool {

/** A text that is not JSON; the message says where and why. */
class JsonError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/**
 * A value as the tool prints it: null, a flag, a number, a text, a list of values, or an object whose members keep
 * their order. Asking a value for what it is not throws std::logic_error.
 */
class Json {
public:
    using Entries = std::vector<Json>;
    using Member = std::pair<std::string, Json>;
    using Members = std::vector<Member>;

    Json() = default;
    Json(std::nullptr_t) {}
    template <typename Number, std::enable_if_t<std::is_arithmetic_v<Number>, int> = 0>
    Json(Number number) : mValue(stored(number)) {}
    Json(const char* text) : mValue(std::string(text)) {}
    Json(std::string text) : mValue(std::move(text)) {}
    template <typename Entry>
    Json(const std::vector<Entry>& entries) : mValue(Entries(entries.begin(), entries.end())) {}
    /** An object. */
    Json(std::initializer_list<Member> members) : mValue(Members(members)) {}

    static Json array(Entries entries = {});
    /**
     * The value of a JSON text; of numbers that are no 64-bit integers the nearest real.
     * Objects and lists may be nested 64 deep.
     *
     * @throws JsonError
     */
    static Json parsed(const std::string& text);
    static Json object() { return Json(std::initializer_list<Member>{}); }

    bool isNull() const { return holds<std::monostate>(); }
    bool isBoolean() const { return holds<bool>(); }
    bool isInteger() const { return holds<std::int64_t>(); }
    bool isNumber() const { return isInteger() || holds<double>(); }
    bool isText() const { return holds<std::string>(); }
    bool isArray() const { return holds<Entries>(); }
    bool isObject() const { return holds<Members>(); }

    bool asBoolean() const;
    /** Cuts off what stands behind the decimal point. */
    std::int64_t asInteger() const;
    double asReal() const;
    const std::string& asText() const;

    const Entries& entries() const;
    /** Appends to a list. */
    void add(Json entry);

    const Members& members() const;
    /** The member of an object; null pointer when there is none. */
    const Json* find(const std::string& name) const;
    /** The member of an object, which has one of this name. */
    const Json& at(const std::string& name) const;
    /** The member of an object, added when there is none; makes an object of null. */
    Json& operator[](const std::string& name);

    /** As a JSON text in one line; what is not UTF-8 is replaced. */
    std::string dump() const;

    friend bool operator==(const Json& left, const Json& right) { return left.mValue == right.mValue; }
    friend bool operator!=(const Json& left, const Json& right) { return !(left == right); }

private:
    template <typename Number> static auto stored(Number number) {
        if constexpr (std::is_same_v<Number, bool>) {
            return number;
        } else if constexpr (std::is_floating_point_v<Number>) {
            return static_cast<double>(number);
        } else {
            return static_cast<std::int64_t>(number);
        }
    }

    template <typename Kind> bool holds() const { return std::holds_alternative<Kind>(mValue); }

    std::variant<std::monostate, bool, std::int64_t, double, std::string, Entries, Members> mValue;
};

} // namespace kelutv::tool
