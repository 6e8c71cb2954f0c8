#pragma once

#include <string>
#include <vector>

namespace kelutv::interposition {

/**
 * While this lives, what is wrong by the platform's log, warnings and worse, is collected, whatever log level is set.
 * The log gets it all the same. One at a time.
 */
class LogCollector {
public:
    LogCollector();
    ~LogCollector();
    LogCollector(const LogCollector&) = delete;
    LogCollector& operator=(const LogCollector&) = delete;

    /** The messages as they were logged, without a line end behind them; each once, in order, and the first 16 only. */
    static std::vector<std::string> messages();
};

} // namespace kelutv::interposition
