// A host of somebody else, tried on the simulated one: its status line and its screen are its own,
// everything else is simulated, scripted and written down. What the journal should read stands in
// foreign_host.txt.
#include <iostream>
#include <memory>

#include <ace/core/actions_engine.h>
#include <ace/host.h>
#include <ace/version.h>

#include "sim/sim_host.h"

static_assert(ACE_VERSION >= 100, "0.1.0 has what is used here");

namespace {

using ace::String;

/// The host's own status line: counts what it shows, and hands it on.
class StatusLine : public ace::ForwardingStatusDisplay {
  public:
    using ForwardingStatusDisplay::ForwardingStatusDisplay;
    void ShowStatus(const String& text, bool first, bool second) override {
        ++shown;
        Next().ShowStatus(L"[" + text + L"]", first, second);
    }
    int shown = 0;
};

class Host : public ace::sim::SimHost {
  public:
    std::shared_ptr<ace::IStatusDisplay> MakeStatusDisplay() override {
        return status = std::make_shared<StatusLine>(SimHost::MakeStatusDisplay());
    }
    std::shared_ptr<ace::ILanguage> MakeLanguage() override {
        return std::make_shared<ace::EnglishLanguage>();
    }
    std::shared_ptr<StatusLine> status;
};

/// Runs a test of two actions; the operator of the script answers.
void Run(const std::shared_ptr<Host>& host) {
    ace::ThreadContext context(host);
    ace::aceActionsEngine engine(context);
    host->files[L"door"][L"ActionsOnTest"] = {L"NumOfEnterActions=2",
                                              L"EnterAction1=NOTIFY:Door closed?,,0",
                                              L"EnterAction2=WAIT:1500.000"};
    engine.LoadActions(L"door", 0, ace::aceTemplate);
    host->user.Expect(L"frmComment", ace::sim::Press(L"cmdClose"));
    engine.StartTest();
}

}  // namespace

int main() {
    const auto host = std::make_shared<Host>();
    Run(host);
    for (const wchar_t* interface : {L"FormHost.ShowModal", L"StatusDisplay"}) {
        for (const String& line : host->journal.LinesOf(interface)) {
            std::wcout << line << L'\n';
        }
    }
    std::wcout << L"status lines: " << host->status->shown << L'\n';
    for (const String& complaint : host->user.TakeComplaints()) {
        std::wcout << complaint << L'\n';
    }
}
