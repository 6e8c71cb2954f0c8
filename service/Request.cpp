#include "kelutv-service/Request.h"

#include "wire/codec/Request.h"

#include <stdexcept>

namespace kelutv::service {

namespace {

/** Where a request has what it says under this name; a name may stand for what a pointer leads to. */
std::size_t indexOf(const wire::Request& request, const std::string& name) {
    const wire::Rows<wire::RequestItem>& items = request.operation->request;
    for (std::size_t i = 0; i < items.size() && i < request.arguments.size(); ++i) {
        const std::string item = items[i].name;
        if (item == name || item == '*' + name) {
            return i;
        }
    }
    throw std::invalid_argument(std::string(request.command->name) + " has no " + name);
}

template <typename Wanted>
const Wanted& valueOf(const wire::Request& request, const std::string& name, const char* kind) {
    const wire::Values& values = request.arguments[indexOf(request, name)];
    const auto* const value = values.size() == 1 ? std::get_if<Wanted>(values.data()) : nullptr;
    if (value == nullptr) {
        throw std::invalid_argument(name + " of " + request.command->name + " is not " + kind);
    }
    return *value;
}

} // namespace

std::int32_t Request::command() const { return mRequest.command->value; }

const char* Request::name() const { return mRequest.command->name; }

bool Request::hasItem() const { return mRequest.command->hasItems; }

std::int32_t Request::item() const {
    return hasItem() ? std::get<std::int32_t>(mRequest.arguments.front().front()) : 0;
}

std::int32_t Request::integer(const std::string& name) const {
    return valueOf<std::int32_t>(mRequest, name, "an integer");
}

double Request::real(const std::string& name) const { return valueOf<double>(mRequest, name, "a real number"); }

const std::string& Request::text(const std::string& name) const {
    return valueOf<std::string>(mRequest, name, "a text");
}

const Values& Request::values(const std::string& name) const { return mRequest.arguments[indexOf(mRequest, name)]; }

std::string Request::state() const {
    const wire::StateKey* const key = mRequest.operation->rule.key;
    return key != nullptr ? key->name : "";
}

Request::Access Request::access() const {
    switch (mRequest.operation->rule.access) {
    case wire::StateRule::Access::Set:
        return Access::Set;
    case wire::StateRule::Access::Get:
        return Access::Get;
    case wire::StateRule::Access::None:
        break;
    }
    return Access::None;
}

Values Request::keys() const { return wire::valuesOf(mRequest.operation->rule.indexes, mRequest.arguments); }

Values Request::given() const { return wire::valuesOf(mRequest.operation->rule.values, mRequest.arguments); }

} // namespace kelutv::service
