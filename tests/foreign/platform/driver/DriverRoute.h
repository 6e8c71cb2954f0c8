#pragma once

#include "foreign/platform/droid/Route.h"

namespace foreign {

/** The kernel's binder driver, and its service manager as Android 11 speaks to it. */
class DriverRoute : public Route {
public:
    std::shared_ptr<Remote> find(const std::string& name, std::string& reason) override;
};

} // namespace foreign
