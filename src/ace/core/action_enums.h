/// The enumerations of the public interface. All are 32 bits wide, and a file or a host may hand in
/// values outside their members: every use has a way for those.
#pragma once

#include <cstdint>

namespace ace {

/// The kind of an action.
enum p_ActionTypes : std::int32_t {
    atWait = 0,           ///< wait a time
    atNotify = 1,         ///< tell the operator, play a sound
    atRemote = 2,         ///< command to an instrument, or start of a program
    atSetDevice = 3,      ///< set a device
    atCheckEut = 4,       ///< check the equipment under test
    atTrackFreq = 5,      ///< track a frequency or synchronise a generator
    atComment = 6,        ///< the host takes a comment
    atProtRec = 7,        ///< protect the receivers
    atTestStop = 8,       ///< stop the test
    atGotoSingle = 9,     ///< go to single measurement
    atStopLevSweep = 10,  ///< stop the level sweep
    atNbBbEtsi = 11,      ///< narrowband/broadband evaluation to ETSI
    atSwitchAmp = 12,     ///< set an amplifier's state
    atSwitchUnit = 13,    ///< switch a path in a switch unit
    atAPI = 14,           ///< run an API macro
    atParkAcc = 15,       ///< park the accessories: a request to the host
    atQuestion = 16,      ///< ask the operator
    atMonitorEUT = 17,    ///< monitor the equipment under test
};

/// The moments at which a list runs.
enum p_PerformTimes : std::int32_t {
    ptStartTest = 0,
    ptStopTest = 1,
    ptEnterSubRange = 2,
    ptLeaveSubrange = 3,
    ptEveryFreq = 4,
    ptTrigger = 5,
    ptNoGo = 6,
    ptGo = 7,
    ptStep = 8,         ///< a step of a susceptibility test, a wireless test or the matrix
    ptBefore = 9,       ///< before a step of an emission test; before the steps of the matrix
    ptAfter = 10,       ///< after a step of monitoring or emission; after the steps of the matrix
    ptBeforeTest = 11,  ///< before the monitoring loop, a test of a sequence, a wireless test
    ptAfterTest = 12,   ///< after the monitoring loop, a test of a sequence, a wireless test
};

/// The kinds of test module of the host; one engine object serves one of them.
enum aceModul : std::int32_t {
    aceTemplate = 0,                ///< single test with subranges
    aceMonitoring = 1,              ///< monitoring with its channels and test loop
    aceEMSAutoTemplateGeneral = 2,  ///< general lists of an automatic susceptibility test
    aceEMSAutoTemplate = 3,         ///< step lists of an automatic susceptibility test
    aceEMIAutoTemplate = 4,         ///< automatic emission test with its steps
    aceTSTemplate = 5,              ///< test sequence with its tests
    aceAziChart = 6,                ///< azimuth chart
    aceVKSTemplate = 7,             ///< wireless test template: tests with steps
    aceVKSDUT = 8,                  ///< wireless device-under-test matrix
};

/// Number of members of `aceModul`.
inline constexpr std::int32_t ModulCount = 9;

/// Requests that the checks of the equipment leave for the host; the values are bits and unite.
enum acEutCheck : std::int32_t {
    acEutNoAction = 0,
    acEutStoreComment = 1,        ///< store the comment that `GetCheckEutAction` returns
    acEutRepeatSubrangeMeas = 2,  ///< repeat the measurement of the subrange
    acEutParkAccessories = 4,     ///< park the accessories
    acEutStopTest = 128,          ///< stop the test
};

}  // namespace ace
