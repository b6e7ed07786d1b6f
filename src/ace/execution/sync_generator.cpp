#include <ace/execution/device_access.h>
#include <ace/execution/frequency_followers.h>
#include <ace/execution/sync_generator.h>
#include <ace/host/rf_generator.h>
#include <ace/host/signal_path.h>

namespace ace {

namespace {

constexpr std::int32_t EnableQuestion = 9432;
/// Second argument of asking for a table, and the two of asking it for a level.
constexpr std::int32_t TableMode = 10;
constexpr std::int32_t LevelOfFrequency = 1;
constexpr std::int32_t LevelColumn = 2;
constexpr std::int32_t LevelCorrection = 1;

/// Objects that can't be found end the synchronisation without a run-time error.
enum class Outcome { Done, NotFound };

/// Decides whether the output is on for the whole test.
void DecideOutput(ThreadContext& context, const aceTrackFreq& record) {
    context.GeneratorEnabled = true;
    if (!record.AskOnMeasStart) {
        return;
    }
    const String question = context.Language().Text(EnableQuestion);
    String title;
    AppendFollowerTitle(context, title);
    if (context.UserDialogs().ShowMessageBox(question, IUserDialogs::YesNo, title) ==
        IUserDialogs::AnswerNo) {
        context.GeneratorEnabled = false;
    }
}

/// The path is looked up before the test only, and made ready when it was found.
Outcome FindPath(ThreadContext& context, aceTrackFreq& record) {
    if (record.SigPath || record.SigPathName.empty()) {
        return Outcome::Done;
    }
    record.SigPath = FindDevice<ISignalPath>(context, record.SigPathName);
    const std::shared_ptr<ISignalPath> path = record.SigPath;
    if (!path) {
        return Outcome::NotFound;
    }
    path->Prepare();
    return Outcome::Done;
}

/// Wakes generator and path; the output stays off until the first frequency.
void WakeUp(ThreadContext& context, const aceTrackFreq& record) {
    const std::shared_ptr<IDevice> common = Required(Required(record.GenDev)->CommonDevice());
    if (RequireActive(context, *common) == IDevice::Active) {
        Required(record.GenDev)->SetRfOn(false);
        Required(record.GenDev)->Execute();
    }
    if (const std::shared_ptr<ISignalPath> path = record.SigPath) {
        RequireActive(context, *Required(path->CommonDevice()));
    }
}

Outcome FindTable(ThreadContext& context, aceTrackFreq& record) {
    if (!record.CalTable) {
        bool flag = false;
        record.CalTable = context.SystemServices().GetTable(
            record.TableType, TableMode, record.TableName, record.TableMeasClass, flag);
    }
    return record.CalTable ? Outcome::Done : Outcome::NotFound;
}

/// Frequency and level follow also while the output is off.
void Follow(ThreadContext& context, aceTrackFreq& record) {
    Required(record.GenDev)->SetFrequency(record.Freq);
    double level =
        Required(record.CalTable)->GetValue(record.Freq, LevelOfFrequency, Value(LevelColumn));
    if (const std::shared_ptr<ISignalPath> path = record.SigPath) {
        std::int32_t kind = LevelCorrection;
        level += path->GetCorrection(record.Freq, kind);
    }
    Required(record.GenDev)->SetLevel(level);
    Required(record.GenDev)->SetRfOn(context.GeneratorEnabled);
    Required(record.GenDev)->Execute();
}

Outcome Synchronise(ThreadContext& context, aceTrackFreq& record) {
    if (TestFollowsNoFrequency(context)) {
        return Outcome::Done;
    }
    if (!context.TestRunning) {
        DecideOutput(context, record);
    }
    if (!context.TestRunning && FindPath(context, record) == Outcome::NotFound) {
        return Outcome::NotFound;
    }
    if (!record.GenDev) {
        record.GenDev = FindDevice<IRfGenerator>(context, record.GenName);
        if (!record.GenDev) {
            return Outcome::NotFound;
        }
    }
    if (!context.TestRunning && context.GeneratorEnabled) {
        WakeUp(context, record);
    }
    if (FindTable(context, record) == Outcome::NotFound) {
        return Outcome::NotFound;
    }
    if (!context.Utilities().IsEqual(record.Freq, 0.0)) {
        Follow(context, record);
    }
    return Outcome::Done;
}

}  // namespace

Boolean modActions::SyncGenerator(ThreadContext& context, aceTrackFreq& record,
                                  Boolean& ignoreAll) {
    return RunFollower(context, record, ignoreAll,
                       [&] { return Synchronise(context, record) == Outcome::Done; });
}

}  // namespace ace
