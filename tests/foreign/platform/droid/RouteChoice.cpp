#include "foreign/platform/driver/DriverRoute.h"
#include "foreign/platform/droid/Route.h"
#include "foreign/platform/sockets/SocketRoute.h"

#include <cstdlib>

namespace foreign {

Route& route() {
    static Route* const chosen = []() -> Route* {
        if (const char* const folder = std::getenv("FOREIGN_FOLDER"); folder != nullptr) {
            return new SocketRoute(folder);
        }
        return new DriverRoute;
    }();
    return *chosen;
}

} // namespace foreign
