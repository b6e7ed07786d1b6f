/// The records of the public interface: one action, one set of lists, and the parameters of the
/// kinds. Records are values; the device objects inside them are shared by all copies. The fields
/// marked run-time are filled when an action runs, live as long as its list and never reach a file.
#pragma once

#include <memory>

#include <ace/core/action_enums.h>
#include <ace/host/devices.h>
#include <ace/host/value.h>

namespace ace {

/// Replace variables: pairs of a placeholder and its value.
struct aceVKSVar {
    std::int32_t count = 0;      ///< number of pairs; 0 means no replacing
    DynArray<String> strSearch;  ///< the placeholders, from index 0
    DynArray<Value> valReplace;  ///< the value of each placeholder, at the same index
    bool operator==(const aceVKSVar&) const = default;
};

/// Parameter of `atWait`.
struct aceWait {
    double Time = 0.0;  ///< milliseconds
    bool operator==(const aceWait&) const = default;
};

/// Parameter of `atNotify`, `atQuestion` and `atComment`.
struct aceNotify {
    String WaveFile;       ///< wave file to play; empty for none
    Boolean Beep;          ///< sound the system beep
    String Message;        ///< text for the operator, may hold line breaks; empty for none
    Boolean GeneratorOff;  ///< comment only: result code 2 instead of 1
    aceVKSVar vks;         ///< replace variables for `Message`
    bool operator==(const aceNotify&) const = default;
};

/// Parameter of `atRemote`: `Command` not empty sends it, `Program` not empty starts it.
struct aceRemote {
    /// What `Iface` says; any other number sends nothing.
    static constexpr std::int32_t Gpib = 0;
    static constexpr std::int32_t Serial = 1;
    static constexpr std::int32_t TcpIp = 2;
    /// `DrvHdl` while no bus device is open.
    static constexpr std::int32_t NoHandle = -1;

    String Command;                  ///< text to send
    std::int32_t Iface = Gpib;       ///< the way that the text goes
    std::int32_t GpibAddress = 0;    ///< board number times 100 plus primary address
    std::int32_t SerComPort = 0;     ///< number of the COM port
    String TcpHost;                  ///< host name or address
    std::int32_t TcpPort = 0;        ///< port
    std::int32_t Terminator = 0;     ///< 0 LF, 1 CR, 2 CR LF, 3 and others nothing
    std::int32_t DrvHdl = NoHandle;  ///< run-time: handle of the opened bus device
    String Program;                  ///< command line to start
    double ProgID = 0.0;             ///< run-time: process number; 0 or -1 while none runs
    Boolean WaitPrgSync;             ///< wait for the program's macro synchronisation
    aceVKSVar vks;                   ///< replace variables for `Command` and `Program`
    bool operator==(const aceRemote&) const = default;
};

/// Parameter of `atAPI`.
struct aceAPI {
    String Program;               ///< the macro's program
    DynArray<String> Parameters;  ///< bounds 0 to 0 without parameters, else from 1 upward
    double Freq = 0.0;            ///< hertz; written by `NewFrequency` before the action runs
    aceVKSVar vks;                ///< replace variables for the parameters
    bool operator==(const aceAPI&) const = default;
};

/// Parameter of the five device kinds: set, check, monitor, amplifier, switch unit.
struct aceSetDevice {
    /// `LastCheck` before the first check.
    static constexpr float NeverChecked = -1.0F;

    String DevName;                           ///< name in the host's device list
    std::shared_ptr<IDevice> Device;          ///< run-time: the general device object
    std::shared_ptr<IMonitorDevice> MoniDev;  ///< run-time: the monitoring device
    std::shared_ptr<IBcGenerator> BcGen;      ///< run-time: the broadcast generator
    std::int32_t ChanNo = 0;                  ///< number of the device section in the same file
    Boolean StopTest;                         ///< stop the test when the check fails
    Boolean CommToTable;                      ///< take the check's comment to the result table
    Boolean Notify;                           ///< tell the operator when the check fails
    Boolean LoadingPos;                       ///< a failed check wants the loading position
    Boolean UseTimeCyc;                       ///< check only once per `CycleTime`
    double CycleTime = 0.0;                   ///< seconds
    float LastCheck = 0.0F;                  ///< run-time: seconds since midnight of the last check
    Boolean WaitState;                       ///< wait for the wanted state
    float WaitTime = 0.0F;                   ///< longest wait for the state, seconds
    std::shared_ptr<IAmplifier> AmplDev;     ///< run-time: the amplifier
    IAmplifierState AmpState = 0;            ///< the wanted state of the amplifier
    std::shared_ptr<ISwitchUnit> SwitchDev;  ///< run-time: the switch unit
    String Path;                             ///< path to switch in the switch unit
    String SigPathName;                      ///< name of a signal path; empty for none
    std::shared_ptr<ISignalPath> SigPath;    ///< run-time: the signal path
    bool operator==(const aceSetDevice&) const = default;
};

/// Parameter of `atTrackFreq`: `GenName` synchronises a generator, `MoniName` tunes a monitoring
/// device; with both set, both happen, in this order.
struct aceTrackFreq {
    String MoniName;                          ///< name of the monitoring device
    std::shared_ptr<IMonitorDevice> MoniDev;  ///< run-time
    std::int32_t DelayTime = 0;               ///< settling delay, milliseconds
    double Freq = 0.0;                        ///< hertz; written by `NewFrequency`
    String GenName;                           ///< name of the generator
    String SigPathName;                       ///< name of the signal path; empty for none
    String TableName;                         ///< name of the calibration table
    ITableType TableType = 0;                 ///< kind of that table
    ITableMeasClass TableMeasClass = 0;       ///< measurement class of that table
    std::shared_ptr<IRfGenerator> GenDev;     ///< run-time
    std::shared_ptr<ISignalPath> SigPath;     ///< run-time
    std::shared_ptr<ICalTable> CalTable;      ///< run-time
    Boolean AskOnMeasStart;                   ///< ask the operator at the start of the measurement
    bool operator==(const aceTrackFreq&) const = default;
};

/// Ends the record's references to devices, tables and paths.
inline void ForgetDevices(aceSetDevice& record) {
    record.Device.reset();
    record.MoniDev.reset();
    record.BcGen.reset();
    record.AmplDev.reset();
    record.SwitchDev.reset();
    record.SigPath.reset();
}
inline void ForgetDevices(aceTrackFreq& record) {
    record.MoniDev.reset();
    record.GenDev.reset();
    record.SigPath.reset();
    record.CalTable.reset();
}

/// What an action carries: nothing, the record of its kind, or a bare 32-bit integer, which
/// `NewFrequency` leaves in a tracking action outside `aceTemplate`.
using ActionParameter = std::variant<std::monostate, aceWait, aceNotify, aceRemote, aceAPI,
                                     aceSetDevice, aceTrackFreq, std::int32_t>;

/// One action in a list.
struct p_Action {
    p_ActionTypes ActionType = atWait;  ///< the kind; values outside the members do nothing
    ActionParameter Parameter;          ///< the record of the kind, by value
    Boolean IgnoreErr;                  ///< run-time: the operator chose to ignore further errors
    bool operator==(const p_Action&) const = default;
};

/// The five lists of a set. A list's count rules, never its bounds: a count of 0 goes with an
/// unallocated array, unless a count line of 0 in a file has left it beside an older one.
struct p_Subrange {
    std::int32_t EnterCount = 0;
    DynArray<p_Action> Enter;
    std::int32_t LeaveCount = 0;
    DynArray<p_Action> Leave;
    std::int32_t FreqCount = 0;
    DynArray<p_Action> Freq;
    std::int32_t MlcCount = 0;
    DynArray<p_Action> Mlc;
    std::int32_t UtilCount = 0;  ///< stays 0: the fifth list only keeps the record's layout
    DynArray<p_Action> Util;     ///< stays unallocated, but takes part in copies of the record
    bool operator==(const p_Subrange&) const = default;
};
/// Sets move whenever one before them comes or goes.
template <>
inline constexpr bool IsLargeElement<p_Subrange> = true;

/// The record of type `Record` in `action`; error 13 when something else stands there.
template <class Record>
Record& RecordOf(p_Action& action) {
    Record* record = std::get_if<Record>(&action.Parameter);
    if (record == nullptr) {
        Raise(Errors::TypeMismatch);
    }
    return *record;
}
template <class Record>
const Record& RecordOf(const p_Action& action) {
    return RecordOf<Record>(const_cast<p_Action&>(action));
}

/// Publishes the records and enumerations to the host under one name. It has no operations.
struct aceTypes {
    using p_Action = ace::p_Action;
    using p_Subrange = ace::p_Subrange;
    using p_ActionTypes = ace::p_ActionTypes;
    using p_PerformTimes = ace::p_PerformTimes;
    using aceModul = ace::aceModul;
    using acEutCheck = ace::acEutCheck;
    using aceVKSVar = ace::aceVKSVar;
    using aceWait = ace::aceWait;
    using aceNotify = ace::aceNotify;
    using aceRemote = ace::aceRemote;
    using aceAPI = ace::aceAPI;
    using aceSetDevice = ace::aceSetDevice;
    using aceTrackFreq = ace::aceTrackFreq;
};

}  // namespace ace
