/// Everything that this version does not carry yet. Each of these says so with error 4099 and its
/// name; nothing else in the engine is allowed to pretend.
#include <ace/core/actions_engine.h>

namespace ace {

namespace {

[[noreturn]] void NotBuiltYet(StringView what) {
    throw RunTimeError(Errors::NotBuiltYet, String(what) + L" is not built yet");
}

}  // namespace

// ---- editor and print ------------------------------------------------------------------------

std::shared_ptr<IEditor> MakeEditor(ThreadContext&) {
    NotBuiltYet(L"LoadEditor");
}
void aceActionsEngine::PrintStrings(aceModul, _aceActionsEngine&, Array2D<String>&, std::int32_t) {
    NotBuiltYet(L"PrintStrings");
}

}  // namespace ace
