#pragma once

#include "tools/kelutv/compliance/results/Run.h"

namespace kelutv::test {

/** A run with a check of each verdict, one of them failed with a request and a short reply. */
tool::compliance::Run sampleRun();

/** The result of this identifier, which is there. */
tool::compliance::CheckResult& resultIn(tool::compliance::Run& run, const std::string& id);

} // namespace kelutv::test
