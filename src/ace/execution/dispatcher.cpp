#include <ace/core/operation.h>
#include <ace/core/text.h>
#include <ace/execution/api_macro.h>
#include <ace/execution/device_actions.h>
#include <ace/execution/dispatcher.h>
#include <ace/execution/plain_actions.h>
#include <ace/execution/remote_commands.h>
#include <ace/execution/signal_path.h>
#include <ace/execution/start_program.h>
#include <ace/execution/sync_generator.h>
#include <ace/execution/track_frequency.h>

namespace ace {

namespace {

/// Writes back what a run can change in a record, and nothing else. Names of objects and settings
/// stay what they were; the amplifier's state and the path go to the host by reference.
template <class Object>
void Take(std::shared_ptr<Object>& kept, const std::shared_ptr<Object>& working) {
    if (kept != working) {
        kept = working;
    }
}
void TakeRunFields(aceRemote& kept, const aceRemote& working) {
    kept.DrvHdl = working.DrvHdl;
    kept.ProgID = working.ProgID;
}
void TakeRunFields(aceSetDevice& kept, const aceSetDevice& working) {
    Take(kept.Device, working.Device);
    Take(kept.MoniDev, working.MoniDev);
    Take(kept.BcGen, working.BcGen);
    kept.LastCheck = working.LastCheck;
    Take(kept.AmplDev, working.AmplDev);
    kept.AmpState = working.AmpState;
    Take(kept.SwitchDev, working.SwitchDev);
    kept.Path = working.Path;
    Take(kept.SigPath, working.SigPath);
}
void TakeRunFields(aceTrackFreq& kept, const aceTrackFreq& working) {
    Take(kept.MoniDev, working.MoniDev);
    kept.Freq = working.Freq;
    Take(kept.GenDev, working.GenDev);
    Take(kept.SigPath, working.SigPath);
    Take(kept.CalTable, working.CalTable);
}

/// One run of an action. The working records are those of the thread: an action that runs inside
/// this one overwrites them, and the routine in progress goes on with the new content. Only the
/// latch is a copy of its own.
struct ActionRun {
    ThreadContext& context;
    const Statements& stmt;
    p_Action& action;
    std::int32_t moduleKind;
    Boolean ignoreErr = action.IgnoreErr;
    std::uint32_t use = 0;  ///< of the working records that are written back, by this run

    template <class Record>
    void CopyOut(Record& working) {
        if constexpr (requires { TakeRunFields(working, working); }) {
            use = ++context.RecordUses;
        }
        stmt([&] { working = RecordOf<Record>(action); });
    }
    /// Where another action may have taken the record meanwhile, the whole record goes back, with
    /// what that one left in it; where none has, only the fields that a run changes differ.
    template <class Record>
    void WriteBack(const Record& working) const {
        stmt([&] {
            Record* const kept = std::get_if<Record>(&action.Parameter);
            if (kept != nullptr && use == context.RecordUses) {
                TakeRunFields(*kept, working);
            } else {
                action.Parameter = working;
            }
        });
    }
};

/// The copy of the action's record on which its routine works.
template <auto Member>
auto& CopiedRecord(ActionRun& run) {
    auto& record = run.context.DispatcherRecords.*Member;
    run.CopyOut(record);
    return record;
}

/// Runs `act` on the copy and writes back what the run changed.
template <auto Member, class Act>
Boolean RunAndWriteBack(ActionRun& run, Act&& act) {
    auto& record = CopiedRecord<Member>(run);
    const Boolean result = act(record);
    run.WriteBack(record);
    return result;
}

/// The same for the kinds whose failures the operator can silence: the latch goes back too.
template <auto Member, class Act>
Boolean RunWithLatch(ActionRun& run, Act&& act) {
    const Boolean result = RunAndWriteBack<Member>(run, act);
    run.action.IgnoreErr = run.ignoreErr;
    return result;
}

Boolean RunWait(ActionRun& run) {
    modActions::Wait(run.context, CopiedRecord<&WorkingRecords::Wait>(run));
    return false;
}

/// With both texts set both run, and the program's answer replaces that of the command.
Boolean RunRemote(ActionRun& run) {
    return RunWithLatch<&WorkingRecords::Remote>(run, [&](aceRemote& record) {
        Boolean result;
        if (!record.Command.empty()) {
            result = run.stmt(
                [&] { return modActions::SendRemoteCommand(run.context, record, run.ignoreErr); });
        }
        if (!record.Program.empty()) {
            result = run.stmt(
                [&] { return modActions::StartRemoteProgram(run.context, record, run.ignoreErr); });
        }
        return result;
    });
}

Boolean RunSetCheck(ActionRun& run) {
    return RunWithLatch<&WorkingRecords::SetDevice>(run, [&](aceSetDevice& record) {
        const Boolean isSet = run.action.ActionType == atSetDevice;
        return run.stmt([&] {
            return modActions::SetCheckDevice(run.context, record, isSet, run.ignoreErr,
                                              run.moduleKind);
        });
    });
}

/// With both names set both run, and the answer of the tracking replaces that of the generator.
Boolean RunTrack(ActionRun& run) {
    return RunWithLatch<&WorkingRecords::TrackFreq>(run, [&](aceTrackFreq& record) {
        Boolean result;
        if (!record.GenName.empty()) {
            result = run.stmt(
                [&] { return modActions::SyncGenerator(run.context, record, run.ignoreErr); });
        }
        if (!record.MoniName.empty()) {
            result = run.stmt(
                [&] { return modActions::TrackMonitor(run.context, record, run.ignoreErr); });
        }
        return result;
    });
}

/// The host hears of the wanted state also when the switching failed.
Boolean RunSwitchAmp(ActionRun& run) {
    const Boolean result =
        RunAndWriteBack<&WorkingRecords::SetDevice>(run, [&](aceSetDevice& record) {
            return run.stmt([&] { return modActions::SwitchAmplifier(run.context, record); });
        });
    run.stmt([&] {
        modActions::PostEvent(run.context, modActions::AmplifierEvent,
                              IntegerText(run.context.DispatcherRecords.SetDevice.AmpState));
    });
    run.stmt([&] { run.context.Platform().Yield(); });
    return result;
}

Boolean RunSwitchUnit(ActionRun& run) {
    return RunAndWriteBack<&WorkingRecords::SetDevice>(run, [&](aceSetDevice& record) {
        return run.stmt([&] { return modActions::SwitchUnitPath(run.context, record); });
    });
}

Boolean RunApi(ActionRun& run) {
    aceAPI& record = CopiedRecord<&WorkingRecords::Api>(run);
    return !run.stmt([&] { return modActions::RunApiMacro(run.context, record); });
}

Boolean RunNotify(ActionRun& run) {
    return modActions::Notify(run.context, run.stmt, CopiedRecord<&WorkingRecords::Notify>(run),
                              run.moduleKind);
}

Boolean RunQuestion(ActionRun& run) {
    return modActions::Question(run.context, run.stmt, CopiedRecord<&WorkingRecords::Notify>(run));
}

Boolean Dispatch(ActionRun run) {
    switch (run.action.ActionType) {
        case atComment:
        case atTestStop:
        case atGotoSingle:
        case atStopLevSweep:
        case atNbBbEtsi:
            return true;
        case atWait:
            return RunWait(run);
        case atNotify:
            return RunNotify(run);
        case atQuestion:
            return RunQuestion(run);
        case atRemote:
            return RunRemote(run);
        case atSetDevice:
        case atCheckEut:
        case atMonitorEUT:
            return RunSetCheck(run);
        case atTrackFreq:
            return RunTrack(run);
        case atProtRec:
            modActions::ProtectIfAllowed(run.context, run.stmt, run.moduleKind);
            return false;
        case atSwitchAmp:
            return RunSwitchAmp(run);
        case atSwitchUnit:
            return RunSwitchUnit(run);
        case atAPI:
            return RunApi(run);
        default:
            return false;
    }
}

}  // namespace

Boolean modActions::RunActing(ThreadContext& context, p_Action& action, std::int32_t moduleKind) {
    context.RunningAction = &action;
    const Boolean result = Logged(context, DoActionLines, NoMessage, [&](const Statements& stmt) {
        return Dispatch({context, stmt, action, moduleKind});
    });
    context.RunningAction = nullptr;
    return result;
}

}  // namespace ace
