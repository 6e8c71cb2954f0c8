#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace kelutv::tool {

/** What the program ends with. */
enum class Exit {
    Success = 0,
    /** A file, a pipe or another program did not do what it had to. */
    Failure = 1,
    /** The command line is wrong; nothing was sent. */
    Usage = 2,
    /** There is no service, or it is gone. */
    Link = 3,
    /** The service or the library refused the operation. */
    Service = 4,
    /** The time was over before what was waited for came. */
    TimeOver = 5,
};

/** Ends the command with a message on standard error, or without one when it is empty. */
class ToolError : public std::runtime_error {
public:
    ToolError(Exit exit, const std::string& message) : std::runtime_error(message), mExit(exit) {}

    Exit exit() const { return mExit; }

private:
    Exit mExit;
};

/** A wrong command line: the message says what is wrong, what is allowed, and the nearest names. */
class UsageError : public ToolError {
public:
    explicit UsageError(const std::string& message) : ToolError(Exit::Usage, message) {}
};

class LinkError : public ToolError {
public:
    explicit LinkError(const std::string& message) : ToolError(Exit::Link, message) {}
};

/** A request did not get through. */
class LostError : public LinkError {
public:
    explicit LostError(const std::string& message) : LinkError(message) {}
};

class ServiceError : public ToolError {
public:
    explicit ServiceError(const std::string& message) : ToolError(Exit::Service, message) {}
};

} // namespace kelutv::tool
