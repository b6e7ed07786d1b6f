/// Everything that this version does not carry yet. Each of these says so with error 4099 and its
/// name; nothing else in the engine is allowed to pretend.
#include <ace/core/actions_engine.h>
#include <ace/execution/device_actions.h>
#include <ace/execution/signal_path.h>
#include <ace/execution/track_frequency.h>

namespace ace {

namespace {

[[noreturn]] void NotBuiltYet(StringView what) {
    throw RunTimeError(Errors::NotBuiltYet, String(what) + L" is not built yet");
}

}  // namespace

// ---- action kinds --------------------------------------------------------------------------

Boolean modActions::SetCheckDevice(ThreadContext&, aceSetDevice&, Boolean, Boolean&, std::int32_t) {
    NotBuiltYet(L"the set, check or monitor device action");
}
void modActions::ProtectReceivers(ThreadContext&) {
    NotBuiltYet(L"the protect receivers action");
}
Boolean modActions::SwitchAmplifier(ThreadContext&, aceSetDevice&) {
    NotBuiltYet(L"the switch amplifier action");
}
Boolean modActions::SwitchUnitPath(ThreadContext&, aceSetDevice&) {
    NotBuiltYet(L"the switch unit action");
}
Boolean modActions::SyncGenerator(ThreadContext&, aceTrackFreq&, Boolean&) {
    NotBuiltYet(L"the synchronise generator action");
}
Boolean modActions::TrackMonitor(ThreadContext&, aceTrackFreq&, Boolean&) {
    NotBuiltYet(L"the track monitoring device action");
}

// ---- editor and print ------------------------------------------------------------------------

void aceActionsEngine::LoadEditor(void*, void*) {
    NotBuiltYet(L"LoadEditor");
}
void aceActionsEngine::PrintStrings(aceModul, _aceActionsEngine&, Array2D<String>&, std::int32_t) {
    NotBuiltYet(L"PrintStrings");
}

}  // namespace ace
