#include <span>

#include <ace/editor/offered_kinds.h>

namespace ace {

namespace {

constexpr p_ActionTypes Common[] = {atSetDevice, atRemote, atWait, atNotify, atAPI};

constexpr p_ActionTypes EmissionTemplate[] = {atCheckEut, atTrackFreq, atProtRec, atSwitchUnit};
constexpr p_ActionTypes Template[] = {atCheckEut, atSwitchAmp, atSwitchUnit};
constexpr p_ActionTypes Monitoring[] = {atCheckEut,   atComment,      atSwitchUnit, atNbBbEtsi,
                                        atGotoSingle, atStopLevSweep, atTestStop};
constexpr p_ActionTypes EmsGeneral[] = {atSwitchUnit, atParkAcc};
constexpr p_ActionTypes EmsSteps[] = {atSwitchUnit};
constexpr p_ActionTypes EmiSteps[] = {atCheckEut, atProtRec, atSwitchUnit, atParkAcc};
constexpr p_ActionTypes Sequence[] = {atCheckEut, atSwitchAmp, atSwitchUnit};
constexpr p_ActionTypes Azimuth[] = {atProtRec, atSwitchUnit, atParkAcc};
constexpr p_ActionTypes Wireless[] = {atSwitchUnit, atCheckEut, atQuestion, atMonitorEUT};
constexpr p_ActionTypes Matrix[] = {atSwitchUnit, atCheckEut};

/// What each module offers besides, indexed by `aceModul`.
constexpr std::span<const p_ActionTypes> OfModule[ModulCount] = {
    Template, Monitoring, EmsGeneral, EmsSteps, EmiSteps, Sequence, Azimuth, Wireless, Matrix};

std::span<const p_ActionTypes> Further(aceModul moduleKind, Boolean emiTemplate) {
    if (moduleKind < 0 || moduleKind >= ModulCount) {
        return {};
    }
    return moduleKind == aceTemplate && emiTemplate ? EmissionTemplate : OfModule[moduleKind];
}

}  // namespace

std::vector<p_ActionTypes> OfferedKinds(aceModul moduleKind, Boolean emiTemplate) {
    std::vector<p_ActionTypes> kinds(std::begin(Common), std::end(Common));
    const std::span<const p_ActionTypes> further = Further(moduleKind, emiTemplate);
    kinds.insert(kinds.end(), further.begin(), further.end());
    return kinds;
}

}  // namespace ace
