/// Modules in a settings file in memory, and the calls of a load or save as short words.
#pragma once

#include <ace/settings/settings_sections.h>

#include "support/fixture.h"

namespace ace::test {

class SectionsTest : public HostTest {
  protected:
    using Lines = std::vector<String>;

    /// The lines of one enter action, a wait of `milliseconds`.
    static Lines WaitLines(std::int32_t milliseconds) {
        return {L"NumOfEnterActions=1",
                L"EnterAction1=WAIT:" + std::to_wstring(milliseconds) + L".000"};
    }
    /// A set with one enter action, a wait of `milliseconds`.
    static p_Subrange WaitSet(std::int32_t milliseconds) {
        p_Subrange set;
        Fill(set, EnterList, {Action(atWait, aceWait{static_cast<double>(milliseconds)})});
        return set;
    }
    std::int32_t Load(aceModul moduleKind, std::int32_t subRanges) {
        state.Modul = moduleKind;
        ReadActionLists(state, L"f", subRanges, moduleKind);
        return subRanges;
    }
    void Save(aceModul moduleKind) { WriteActionLists(state, L"f", moduleKind); }

    /// The effects since the last call, without the names of the two interfaces of files.
    Lines TakeFileCalls() {
        Lines calls = TakeEffects();
        for (String& call : calls) {
            for (const StringView name : {L"SettingsFile.", L"SystemServices."}) {
                if (call.starts_with(name)) {
                    call.erase(0, name.size());
                }
            }
        }
        return calls;
    }
    /// The same of a save, with "Write" for a section that is written empty and "Delete" for one
    /// that is deleted.
    Lines TakeSaveCalls() {
        Lines calls = TakeFileCalls();
        for (String& call : calls) {
            Shorten(call, L", \"\")", L"Write ");
            Shorten(call, L", nothing)", L"Delete ");
        }
        return calls;
    }
    static Lines Both(Lines first, const Lines& second) {
        first.insert(first.end(), second.begin(), second.end());
        return first;
    }

    EngineState state{context};

  private:
    static void Shorten(String& call, StringView end, StringView word) {
        constexpr StringView Begin = L"SetSection(\"";
        if (call.starts_with(Begin) && call.ends_with(end)) {
            const std::size_t length = call.size() - Begin.size() - end.size() - 1;
            call = String(word) + call.substr(Begin.size(), length);
        }
    }
};

}  // namespace ace::test
