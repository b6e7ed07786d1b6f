#include "support/remote_fixture.h"

namespace ace::test {

RoutineTest::RoutineTest() {
    context.StatusDisplay = host->MakeStatusDisplay();
    context.ComPortForm = MakeComPortForm(context);
    context.ActionStatusTexts = {L"Wait", L"GPIB ", L"RS232 ", L"TCP/IP ", L"Program"};
    host->journal.Clear();
}

RoutineTest::~RoutineTest() = default;

std::vector<String> RoutineTest::TakeCalls() {
    std::vector<String> calls;
    for (const sim::JournalEntry& entry : host->journal.Entries()) {
        if (entry.isQuestion || entry.operation.starts_with(L"FormHost.Hide") ||
            entry.operation.starts_with(L"FormHost.TextHeight")) {
            continue;
        }
        const bool isForm = entry.operation == L"FormHost.ShowModal";
        calls.push_back(isForm ? L"Form " + entry.arguments.substr(0, entry.arguments.find(L','))
                               : entry.Line());
    }
    host->journal.Clear();
    return calls;
}

}  // namespace ace::test
