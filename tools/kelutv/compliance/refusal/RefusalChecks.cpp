#include "tools/kelutv/compliance/refusal/RefusalChecks.h"

namespace kelutv::tool::compliance {

void addRefusalChecks(Checks& /*checks*/, const Terms& /*terms*/) {}

} // namespace kelutv::tool::compliance
