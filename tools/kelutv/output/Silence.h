#pragma once

namespace kelutv::tool {

/**
 * While this lives, nothing gets to standard error: the library logs and prints there what is of no use to a person
 * who reads a value. Does nothing when the person asked for a log by `KQLOG_LEVEL`. One at a time.
 */
class Silence {
public:
    Silence();
    ~Silence();
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    int mError = -1;
};

} // namespace kelutv::tool
