#include <memory>
#include <vector>

#include <ace/core/actions_engine.h>
#include <ace/settings/action_line.h>

#include "bench/cases.h"
#include "bench/quiet_host.h"

namespace ace::bench {

namespace {

/// A section as a radiated-immunity set-up has it.
const std::vector<String> Lines = {
    L"NumOfEnterActions=11",
    L"EnterAction1=NOTIFY:Radiated immunity\x01 side A.\177Door closed?,C:\\Sounds\\a.wav,0",
    L"EnterAction2=REMOTE:*RST;*CLS,2,192.168.17.21,5025:0,,0,",
    L"EnterAction3=REMOTE:MMEM:LOAD:STAT 1\x01\"RI_BASE.STA\",2,192.168.17.21,5025:0,,0,",
    L"EnterAction4=WAIT:3000.000",
    L"EnterAction5=REMOTE:CAL:ZERO:AUTO ONCE,0,13,0,,0,",
    L"EnterAction6=WAIT:8000.000",
    L"EnterAction7=SWITCHAMP:Amp 80-1000MHz 250W,1",
    L"EnterAction8=SWITCHAMP:Amp 1-2.7GHz 80W,1",
    L"EnterAction9=SWITCHAMP:Amp 2.7-6GHz 50W,1",
    L"EnterAction10=REMOTE:,,,,\"C:\\Tools\\exerciser.exe\" /profile ri /can 1,1,",
    L"EnterAction11=CHECKEUT:EUT Monitor,101,1,0,1,0,20.00,1,30.00,0",
    L"NumOfLeaveActions=3",
    L"LeaveAction1=REMOTE:OUTP OFF,2,192.168.17.21,5025:0,,0,",
    L"LeaveAction2=SWITCHAMP:Amp 80-1000MHz 250W,2",
    L"LeaveAction3=SWITCHUNIT:RF Matrix A,ALL_50OHM",
    L"NumOfFreqActions=3",
    L"FrequAction1=WAIT:1500.000",
    L"FrequAction2=CHECKEUT:EUT Monitor,102,0,1,0,0,20.00,1,10.00,0",
    L"FrequAction3=API:C:\\Macros\\log_eut.mac||#FREQ#||EUT Monitor",
};

struct OneSection : DefaultSettingsFile {
    std::vector<String> GetSection(const String&) override {
        if (HostsCount()) {
            Count<true>(Call::Line, Lines.size());
        }
        return Lines;
    }
};

volatile std::size_t sink = 0;

/// Key, keyword and the fields between the commas, as views.
void SplitLine(StringView line, std::vector<StringView>& parts) {
    parts.clear();
    const std::size_t equals = line.find(L'=');
    parts.push_back(line.substr(0, equals));
    StringView rest = line.substr(equals + 1);
    const std::size_t colon = rest.find(L':');
    if (colon != StringView::npos) {
        parts.push_back(rest.substr(0, colon + 1));
        rest.remove_prefix(colon + 1);
    }
    for (std::size_t comma; (comma = rest.find(L',')) != StringView::npos;) {
        parts.push_back(rest.substr(0, comma));
        rest.remove_prefix(comma + 1);
    }
    parts.push_back(rest);
    sink = sink + parts.size();
}

/// The host's copy of the lines, which is no work of the reader.
Work HandOut() {
    return [file = std::make_shared<OneSection>()] { sink = file->GetSection({}).size(); };
}

Work SplitAll() {
    return [parts = std::vector<StringView>()]() mutable {
        for (const String& line : Lines) {
            SplitLine(line, parts);
        }
    };
}

Work ReadAll() {
    auto context = std::make_shared<ThreadContext>(QuietHost());
    auto lists = std::make_shared<p_Subrange>();
    return [context, lists] {
        OneSection file;
        modActions::ReadSection(*context, file, L"ActionsOnTest", *lists);
    };
}

Case ReadingASection() {
    return {"reading a section beside a bare split of its lines",
            "line",
            Lines.size(),
            SplitAll,
            ReadAll,
            {.instructions = 5.0},
            Lines.size(),
            {{Call::TraceQuestion, 2}, {Call::Line, Lines.size()}},
            HandOut};
}

}  // namespace

std::vector<Case> SectionCases() {
    return {ReadingASection()};
}

}  // namespace ace::bench
