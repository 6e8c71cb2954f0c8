#include "tools/kelutv/compliance/state/StateChecks.h"

namespace kelutv::tool::compliance {

void addStateChecks(Checks& /*checks*/, const Terms& /*terms*/) {}

} // namespace kelutv::tool::compliance
