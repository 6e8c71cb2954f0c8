#include "tools/kelutv/text/Effects.h"

namespace kelutv::tool {

namespace {

const char* wordFor(wire::EffectKind kind) {
    switch (kind) {
    case wire::EffectKind::Set:
        return "set";
    case wire::EffectKind::Action:
        return "action";
    case wire::EffectKind::PrintOnly:
        return "print-only";
    case wire::EffectKind::Read:
        break;
    }
    return "read";
}

bool isChange(const wire::Effect& effect) {
    return effect.kind == wire::EffectKind::Set || effect.kind == wire::EffectKind::Action;
}

} // namespace

std::string effectText(const wire::Effect& effect) {
    std::string text = wordFor(effect.kind);
    if (effect.kind == wire::EffectKind::Set) {
        text += effect.back == nullptr ? ", cannot be put back"
                                       : std::string(", put back by what ") + effect.back + " reads";
    }
    if (isChange(effect)) {
        const char* const kept = effect.isKept.value_or(false) ? "yes" : "no";
        text += std::string(", kept beyond power off: ") + (effect.isKept ? kept : "?");
    }
    return text + (effect.isDangerous ? ", dangerous" : "");
}

Json effectDocument(const wire::Effect& effect) {
    Json document{{"kind", wordFor(effect.kind)}, {"dangerous", effect.isDangerous}};
    if (effect.kind == wire::EffectKind::Set) {
        document["back"] = effect.back != nullptr ? Json(effect.back) : Json();
    }
    if (isChange(effect)) {
        document["kept"] = effect.isKept ? Json(*effect.isKept) : Json();
    }
    return document;
}

} // namespace kelutv::tool
