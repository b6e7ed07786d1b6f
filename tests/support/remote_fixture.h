/// A context as the first engine of a thread leaves it, for tests of the routines below it.
#pragma once

#include <ace/core/ports.h>

#include "support/fixture.h"

namespace ace::test {

/// Status line, its labels and a serial form are there; forms show in the journal by name alone.
class RoutineTest : public HostTest {
  protected:
    RoutineTest() {
        context.StatusDisplay = host->MakeStatusDisplay();
        context.ComPortForm = MakeComPortForm(context);
        context.ActionStatusTexts = {L"Wait", L"GPIB ", L"RS232 ", L"TCP/IP ", L"Program"};
        host->journal.Clear();
    }

    /// The effects in order; a shown form by its name, its hiding left out.
    std::vector<String> TakeCalls() {
        std::vector<String> calls;
        for (const sim::JournalEntry& entry : host->journal.Entries()) {
            if (entry.isQuestion || entry.operation.starts_with(L"FormHost.Hide") ||
                entry.operation.starts_with(L"FormHost.TextHeight")) {
                continue;
            }
            const bool isForm = entry.operation == L"FormHost.ShowModal";
            calls.push_back(isForm
                                ? L"Form " + entry.arguments.substr(0, entry.arguments.find(L','))
                                : entry.Line());
        }
        host->journal.Clear();
        return calls;
    }

    Boolean ignoreAll;
};

inline const String ClearedStatus = L"StatusDisplay.ShowStatus(\"\", false, false)";

}  // namespace ace::test
