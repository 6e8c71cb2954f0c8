#pragma once

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kelutv::simulator {

/** An error in a configuration or a snapshot: the file, the place in it, what is wrong and what is allowed. */
class ConfigurationError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/** A value of a JSON file together with its place. Every reader throws `ConfigurationError` for another type. */
class JsonNode {
public:
    bool isObject() const;
    bool isText() const;
    /** Whether it is a number with a fraction or an exponent. */
    bool isReal() const;

    /** The members of an object, by name. */
    std::vector<std::pair<std::string, JsonNode>> members() const;

    /** The members of an object that has no others than these. */
    std::vector<std::pair<std::string, JsonNode>> membersOf(const std::vector<std::string>& allowed) const;

    bool has(const std::string& name) const;

    /** The member of this name, which must be there. */
    JsonNode at(const std::string& name) const;

    /** The elements of an array. */
    std::vector<JsonNode> elements() const;

    /** The elements of an array, or the only value. */
    std::vector<JsonNode> listed() const;

    std::int32_t number() const;
    double real() const;
    std::string text() const;
    bool truth() const;

    /** The JSON text of the value, shortened when it is long. */
    std::string shown() const;

    /** @throws ConfigurationError always: what is wrong with the value */
    [[noreturn]] void fail(const std::string& what) const;

private:
    friend class JsonFile;

    JsonNode(const nlohmann::json& value, std::string file, std::string path)
        : mValue(&value), mFile(std::move(file)), mPath(std::move(path)) {}

    JsonNode child(const nlohmann::json& value, const std::string& step) const;

    const nlohmann::json* mValue;
    std::string mFile;
    std::string mPath;
};

/** The content of a JSON file. */
class JsonFile {
public:
    /**
     * @param name what messages call the file
     * @throws ConfigurationError when the text is not JSON, is nested deeply, holds a number beyond those of a double,
     * or an object has two members of one name
     */
    JsonFile(const std::string& text, std::string name);
    ~JsonFile();

    /** The whole content; the file must outlive the node and those that come from it. */
    JsonNode root() const;

    /**
     * Adds what only the base has, unless this is no object.
     * @param wholes objects whose members are taken as a whole from the one or the other; all else goes member by
     * member
     */
    void layOver(const JsonFile& base, const std::vector<std::string>& wholes);

private:
    std::unique_ptr<nlohmann::json> mContent;
    std::string mName;
};

} // namespace kelutv::simulator
