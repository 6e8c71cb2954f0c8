#pragma once

namespace kelutv::process {

/** While this lives, what is written to one descriptor goes to another. Those of one descriptor end in reverse order.
 */
class Redirection {
public:
    /** Does nothing when `to` is -1 or no descriptor is left. */
    Redirection(int fd, int to);
    ~Redirection();
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

    bool isActive() const { return mOriginal >= 0; }

private:
    int mFd;
    int mOriginal;
};

} // namespace kelutv::process
