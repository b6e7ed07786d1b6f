#include <ace/core/moment_table.h>

namespace ace {

namespace {

using L = ModuleLists;

constexpr MomentRow Fixed(aceModul moduleKind, p_PerformTimes time, StringView key,
                          p_Subrange L::*set, const ListFields& list) {
    return {moduleKind, time, key, set, nullptr, list};
}
constexpr MomentRow Numbered(aceModul moduleKind, p_PerformTimes time, StringView key,
                             const NumberedSets& sets, const ListFields& list) {
    return {moduleKind, time, key, nullptr, &sets, list};
}

constexpr MomentRow Moments[] = {
    Fixed(aceTemplate, ptStartTest, L"ETE", &L::MainTest, EnterList),
    Fixed(aceTemplate, ptStopTest, L"LTE", &L::MainTest, LeaveList),
    Numbered(aceTemplate, ptEnterSubRange, L"ESR", MainSubrangeSets, EnterList),
    Numbered(aceTemplate, ptLeaveSubrange, L"LSR", MainSubrangeSets, LeaveList),
    Fixed(aceTemplate, ptEveryFreq, L"EFR", &L::MainTest, FreqList),

    Fixed(aceMonitoring, ptStartTest, L"ETE", &L::MoniEut, EnterList),
    Fixed(aceMonitoring, ptStopTest, L"LTE", &L::MoniEut, LeaveList),
    Fixed(aceMonitoring, ptEveryFreq, L"EFR", &L::MoniEut, FreqList),
    Numbered(aceMonitoring, ptTrigger, L"TRI", MoniChannelSets, FreqList),
    Numbered(aceMonitoring, ptNoGo, L"NGO", MoniChannelSets, EnterList),
    Numbered(aceMonitoring, ptGo, L"GOE", MoniChannelSets, LeaveList),
    Fixed(aceMonitoring, ptAfter, L"MLC", &L::MoniEut, MlcList),
    Fixed(aceMonitoring, ptBeforeTest, L"BFT", &L::MoniLoop, EnterList),
    Fixed(aceMonitoring, ptAfterTest, L"ATT", &L::MoniLoop, LeaveList),

    Fixed(aceEMSAutoTemplateGeneral, ptStartTest, L"ETE", &L::EMSAutoGeneral, EnterList),
    Fixed(aceEMSAutoTemplateGeneral, ptStopTest, L"LTE", &L::EMSAutoGeneral, LeaveList),

    Numbered(aceEMSAutoTemplate, ptStep, L"STE", EMSAutoStepSets, EnterList),

    Fixed(aceEMIAutoTemplate, ptStartTest, L"ETE", &L::EMIAutoTest, EnterList),
    Fixed(aceEMIAutoTemplate, ptStopTest, L"LTE", &L::EMIAutoTest, LeaveList),
    Fixed(aceEMIAutoTemplate, ptEveryFreq, L"EFR", &L::EMIAutoTest, FreqList),
    Numbered(aceEMIAutoTemplate, ptBefore, L"BEF", EMIAutoStepSets, EnterList),
    Numbered(aceEMIAutoTemplate, ptAfter, L"AFT", EMIAutoStepSets, LeaveList),

    Fixed(aceTSTemplate, ptStartTest, L"ETE", &L::TSTest, EnterList),
    Fixed(aceTSTemplate, ptStopTest, L"LTE", &L::TSTest, LeaveList),
    Numbered(aceTSTemplate, ptBeforeTest, L"BFT", TSTestSets, EnterList),
    Numbered(aceTSTemplate, ptAfterTest, L"ATT", TSTestSets, LeaveList),

    Fixed(aceAziChart, ptStartTest, L"ETE", &L::AziChart, EnterList),
    Fixed(aceAziChart, ptStopTest, L"LTE", &L::AziChart, LeaveList),
    Fixed(aceAziChart, ptEveryFreq, L"EFR", &L::AziChart, FreqList),

    Fixed(aceVKSTemplate, ptStartTest, L"ETE", &L::VKSTemplate, EnterList),
    Fixed(aceVKSTemplate, ptStopTest, L"LTE", &L::VKSTemplate, LeaveList),
    Numbered(aceVKSTemplate, ptStep, L"STE", VKSStepSets, EnterList),
    Numbered(aceVKSTemplate, ptBeforeTest, L"BFT", VKSTestSets, EnterList),
    Numbered(aceVKSTemplate, ptAfterTest, L"ATT", VKSTestSets, LeaveList),

    Numbered(aceVKSDUT, ptStep, L"STE", VKSStepSets, EnterList),
    Fixed(aceVKSDUT, ptBefore, L"BSA", &L::VKSDUTGlob, EnterList),
    Fixed(aceVKSDUT, ptAfter, L"ASA", &L::VKSDUTGlob, LeaveList),
};

/// The set of a moment, in lists that may be read only.
template <class Lists>
auto& SetOf(Lists& lists, const MomentRow& moment, std::int32_t number) {
    return moment.fixed != nullptr ? lists.*moment.fixed : (lists.*moment.numbered->sets)[number];
}

}  // namespace

std::span<const MomentRow> MomentTable() {
    return Moments;
}

const MomentRow* FindMoment(std::int32_t moduleKind, std::int32_t time) {
    for (const MomentRow& row : Moments) {
        if (row.moduleKind == moduleKind && row.time == time) {
            return &row;
        }
    }
    return nullptr;
}

std::optional<p_PerformTimes> TimeOfKey(StringView key) {
    for (const MomentRow& row : Moments) {
        if (key.starts_with(row.key)) {
            return row.time;
        }
    }
    return std::nullopt;
}

ActionList ListOf(ModuleLists& lists, const MomentRow& moment, std::int32_t number) {
    p_Subrange& set = SetOf(lists, moment, number);
    return {set.*moment.list.count, set.*moment.list.actions};
}

ConstActionList ListOf(const ModuleLists& lists, const MomentRow& moment, std::int32_t number) {
    const p_Subrange& set = SetOf(lists, moment, number);
    return {set.*moment.list.count, set.*moment.list.actions};
}

}  // namespace ace
