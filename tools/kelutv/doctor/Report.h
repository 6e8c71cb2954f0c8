#pragma once

#include "tools/kelutv/doctor/DoctorChecks.h"
#include "tools/kelutv/output/Errors.h"
#include "tools/kelutv/output/Output.h"

#include <cstddef>
#include <string>

namespace kelutv::tool {

/** Tells what the checks find, one a line; those that read a module in one line, and besides each that is not good. */
class DoctorReport {
public:
    explicit DoctorReport(const Output& output) : mOutput(output) {}

    void add(const Check& check, const Finding& finding);

    /** Says what it all comes to. @return the exit code for it */
    Exit finish(std::size_t leftOut);

private:
    /** What came of the checks of one module. */
    struct Reads {
        std::string module;
        std::size_t all = 0;
        std::size_t answered = 0;
        Finding slowest;
        std::string slowestName;
    };

    void addRead(const Check& check, const Finding& finding);
    void tellReads();
    void tell(const std::string& name, const Finding& finding) const;

    const Output& mOutput;
    Reads mReads;
    std::size_t mGood = 0;
    std::size_t mWarnings = 0;
    std::size_t mFailures = 0;
    bool mIsUnlinked = false;
    bool mIsTimeOver = false;
};

} // namespace kelutv::tool
