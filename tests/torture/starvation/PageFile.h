#pragma once

#include "torture/starvation/Starvation.h"

#include <string>

namespace kelutv::test {

/** A page in a file, for a program that the refusals are preloaded into. */
class PageFile {
public:
    /** Makes the file. Throws when it cannot. */
    explicit PageFile(const std::string& path);
    ~PageFile();
    PageFile(const PageFile&) = delete;
    PageFile& operator=(const PageFile&) = delete;

    starvation::Page* operator->() const { return mPage; }

private:
    starvation::Page* mPage;
};

} // namespace kelutv::test
