/// An engine object on a bench, with actions on its devices.
#pragma once

#include "support/device_fixture.h"

namespace ace::test {

/// A stop, a comment or whatever else a check is to do, as flags of its record.
using CheckFlag = Boolean aceSetDevice::*;

inline p_Action OnDevice(p_ActionTypes kind, const String& name,
                         const std::vector<CheckFlag>& flags = {}) {
    aceSetDevice record;
    record.DevName = name;
    record.ChanNo = 7;
    for (const CheckFlag flag : flags) {
        record.*flag = true;
    }
    return Action(kind, record);
}
inline p_Action Follow(const String& generator, const String& monitor = {}, bool asks = false) {
    aceTrackFreq record;
    record.GenName = generator;
    record.MoniName = monitor;
    record.TableName = L"Levels";
    record.AskOnMeasStart = asks;
    return Action(atTrackFreq, record);
}

class DeviceMoments : public EngineTest {
  protected:
    DeviceMoments() {
        host->texts[9420] = L"%1 has failed";
        context.ModuleFileNames.fill(L"setup.ini");
    }
    template <class Kind>
    std::shared_ptr<Kind> Add(const String& name) {
        return host->bench.Add<Kind>(*host, name);
    }
    void Serve(aceModul moduleKind) { State().Modul = moduleKind; }
    void Answer(const String& button) { host->user.Expect(L"frmGpibError", sim::Press(button)); }
    /// What the host is asked for at present; the request is taken by that.
    std::int32_t TakeRequest() {
        Value comment;
        return engine->GetCheckEutAction(comment);
    }
    /// The effects in order; a shown form by its name, its hiding left out.
    Lines TakeCalls() {
        Lines calls;
        for (const String& line : TakeEffects()) {
            if (line.starts_with(L"FormHost.ShowModal(\"frmGpibError\"")) {
                calls.push_back(ErrorShown());
            } else if (!line.starts_with(L"FormHost.Hide")) {
                calls.push_back(line);
            }
        }
        return calls;
    }
};

}  // namespace ace::test
