/// The public interface of the engine: every operation with its contract.
#pragma once

#include <ace/core/action_records.h>
#include <ace/host/array_2d.h>
#include <ace/host/list_control.h>
#include <ace/host/tree_control.h>

namespace ace {

/// Event interface. The host registers one sink per engine object.
class __aceActionsEngine {  // NOLINT(bugprone-reserved-identifier): the host knows this name
  public:
    virtual ~__aceActionsEngine() = default;
    /// A drop on the editor's tree has been handled, also one that changed nothing: raised once, at
    /// the end, on the object for which the editor had been loaded when it began.
    virtual void DragComplete() {}
};

/// One engine object serves one test module of the host.
///
/// All calls come on the host's user-interface thread. Numbers and indexes count from 1. A failure
/// is a `RunTimeError`. "Handled" below means: the error is reported to the trace log first and
/// then raised with number and description; everything else raises it as it came. Operations that
/// run actions let messages run before each action and inside many; from there the host may call
/// any operation again. Resizing a list that is being run is then error 10: the call has changed
/// nothing and can be made again when the list has run. All calls of an object come on the thread
/// that made it.
class _aceActionsEngine {
  public:
    virtual ~_aceActionsEngine() = default;

    /// The lists of this object's module differ from its file. A module kind outside the members:
    /// error 9, also on writing.
    virtual Boolean Change() = 0;
    /// Stores the flag; true also takes over the editor's working copies. Without an editor that is
    /// error 91, and while one of the lists runs error 10: the flag stands then, and no list is
    /// taken. Errors come as they are raised, unreported; those of `Release` too.
    virtual void Change(Boolean value) = 0;
    /// True once after a receiver was to be protected; reading clears it, for all objects.
    virtual Boolean InitReceiver() = 0;
    /// The matrix depends on the frequency / the bandwidth / the power.
    virtual Boolean VKSInfByFreq() = 0;
    virtual Boolean VKSInfByBandwidth() = 0;
    virtual Boolean VKSInfByPower() = 0;
    /// Ends the editor, whichever object opened it. To be called before the object goes if
    /// `LoadEditor` was called. While the dialog of an action is open, the operator is asked first
    /// whether to close it, and messages run: "No" takes the entry over as OK does. The
    /// editor is gone afterwards, whatever the answer; only an error of that edit (10, 91), which
    /// comes out, leaves it as it is.
    virtual void Release() = 0;

    // ---- lists and files -------------------------------------------------------------------

    /// Reads the lists of `Modul` from the host's file and makes the object serve that kind. The
    /// numbered sections 1 to `SubRanges` are read; for `aceVKSDUT` it is the template number. More
    /// than 100,000 sections are error 7, and no list is replaced; a wireless test that asks for
    /// more steps ends the load there. A damaged line ends the load with its error: what was read
    /// before it stays. While a list that would be replaced runs: error 10. An open editor keeps
    /// the lists that it shows, and its next edit writes them over those that were read, so call
    /// `LoadEditor` again. No messages run. Handled.
    virtual void LoadActions(const String& FileName, std::int32_t SubRanges, aceModul Modul) = 0;
    /// Writes the lists of the module loaded last; of a new object those of a single test, which
    /// are empty. Raises what `WriteActionLists` raises.
    virtual void SaveActions(const String& FileName) = 0;
    /// Opens the editor on two controls of the host: `ActionsList` offers the kinds of actions,
    /// `ActionsTree` shows the moments and their actions, and is built first. They stay the host's.
    /// One that goes before `Release` tells the editor; what needs it is error 91 from then on, in
    /// the operations that load an open editor again too. Either may be none: error 91 where it is
    /// first used, and the editor's form is there by then. When the tree can't be built, it is
    /// empty and neither control is linked any more; an error of the list leaves the tree. Messages
    /// may run while the form is made; an editor that is released there is error 91. While the
    /// operator is asked whether the dialog is to be closed (`Release`): error 10. Handled.
    virtual void LoadEditor(IListControl* ActionsList, ITreeControl* ActionsTree) = 0;
    /// Collapses the tree of an open editor, and selects and opens subrange `Number`, from 1; below
    /// that it is collapsed alone. Nothing without an editor, and nothing is selected in the
    /// general lists of an automatic test and in azimuth charts. A number without a node is error
    /// 91, when the tree is collapsed; in the matrix every number is. Handled.
    virtual void EditorSelectSubrange(std::int32_t Number) = 0;
    /// Makes room for a subrange, channel, step or test at `Index`; one above the count appends. An
    /// entry before others keeps a copy of the frequency list that stood there; a still higher
    /// `Index` takes the spare element, which after a deletion is a copy of the last entry.
    /// `VKSUkey` is the key of a new wireless test and goes behind the other keys whatever the
    /// `Index`. An open editor is loaded again, but for a wireless test. Neither this nor the other
    /// three that follow the host set `Change`, and a list that is being run is error 10. An
    /// `Index` below 1 is error 9: the count has grown by then, and all entries have moved up by
    /// one. A count that no load has set goes from -1 to 0, without an entry. Without numbered
    /// lists, and for the matrix, nothing is done, also in an open editor. Handled.
    virtual void AddSubrange(std::int32_t Index, const String& VKSUkey = {}) = 0;

    // ---- wireless tests, steps and the matrix ------------------------------------------------

    // None of these asks for the module kind, sets `Change` or tells an open editor: its next edit
    // writes the old matrix back, so call `LoadEditor` again. Rows that are being run can't be
    // added or removed: error 10.

    /// Sets the replace variables, the values beside the placeholders, or with `blnDelete` forgets
    /// them. Placeholders that were never made: error 9; too few values: error 9 when they are
    /// used. Handled.
    virtual void SetVKSReplaceVar(const DynArray<String>& strSearch,
                                  const DynArray<Value>& valReplace, Boolean blnDelete = {}) = 0;
    /// Adds a step to the test `ForUKey` unless the pair of keys is there: it keeps its old name
    /// then. Whether there is such a test is not asked. Handled.
    virtual void AddVKSStep(const String& Key, const String& ForUKey, const String& Name) = 0;
    /// Removes a frequency (hertz) and its rows; -1 removes the rows for all frequencies. Like all
    /// that delete, it rebuilds nothing: without an entry left there may be no row at all. Handled.
    virtual void DeleteVKSDUTFreq(double Freq) = 0;
    /// Adds a bandwidth, or renames that of an id in the table, and rebuilds the rows. Ids count
    /// from 0; -1, and any id behind the last, adds one at the next place; another negative id only
    /// rebuilds. Names are no keys. Handled.
    virtual void AddVKSDUTBandwidthID(const String& BandwidthString,
                                      std::int32_t BandwidthID = -1) = 0;
    /// Sets what influences the matrix (0 is no) and rebuilds its rows: one for each combination of
    /// the dimensions that do. Rows that stay keep their actions. Handled.
    virtual void SetVKSDUTInfluence(std::int32_t InfluencedByFreq,
                                    std::int32_t InfluencedByBandwidth,
                                    std::int32_t InfluencedbyPower) = 0;
    /// As `AddVKSDUTBandwidthID`, for a power. Handled.
    virtual void AddVKSDUTPowerID(const String& PowerString, std::int32_t PowerID = -1) = 0;
    /// Adds a frequency (hertz; 0 is the test mode), or renames it, and rebuilds the rows. Handled.
    virtual void AddVKSDUTFreq(const String& FreqString, double Freq) = 0;
    /// Removes a bandwidth and its rows; higher ids move down. An id behind the table costs the
    /// last name and no row. -1 removes the rows for all bandwidths; it and every other negative id
    /// is error 9 then, unless the table is empty. Handled.
    virtual void DeleteVKSDUTBandwidthID(std::int32_t BandwidthID) = 0;
    /// Empties the matrix' three tables with their rows; the row for everything stays. Handled.
    virtual void DeleteVKSDUTAll() = 0;
    /// As `DeleteVKSDUTBandwidthID`, for a power. Handled.
    virtual void DeleteVKSDUTPowerID(std::int32_t PowerID) = 0;

    // ---- subranges follow the host -------------------------------------------------------------

    /// Removes the entry at `Index`, or the last one when there is none; of a wireless template the
    /// test of key `VKSUkey` with its steps, whatever the `Index`. An open editor is loaded again.
    /// Where there is an entry, an `Index` below 1 is error 9, and the count has fallen by then.
    /// Handled.
    virtual void DeleteSubrange(std::int32_t Index, const String& VKSUkey = {}) = 0;
    /// Moves an entry; `Destination` is its position after the removal. Of a wireless template the
    /// last test goes instead, and the one at `Destination` is overwritten. An open editor is
    /// loaded again and selects it; after an error the editor hears of no change until the next
    /// move or exchange that succeeds. Outside the array: error 9. Handled.
    virtual void MoveSubrange(std::int32_t Source, std::int32_t Destination) = 0;
    /// Exchanges two entries; the editor and errors as above. Handled.
    virtual void SwapSubrange(std::int32_t Source, std::int32_t Destination) = 0;

    // ---- moments of a test ---------------------------------------------------------------------

    // A true answer asks the host to stop the test. None of these asks whether a test runs.

    /// Clears the latches of ignored errors, runs the start list, and marks the test as running.
    virtual Boolean StartTest() = 0;
    /// Breaks off a running macro and clears the status line; stops no walk. Never raises.
    virtual void StopAllActions() = 0;
    /// Runs the stop list and marks the test as not running.
    virtual Boolean StopTest() = 0;
    /// Run the lists of a subrange of `aceTemplate`. A `Number` outside the array runs nothing; an
    /// array that was never made is error 9.
    virtual Boolean EnterSubrange(std::int32_t Number) = 0;
    virtual Boolean LeaveSubrange(std::int32_t Number) = 0;
    /// Before an emission step; error 9 on an object without such steps.
    virtual Boolean BeforeStep(std::int32_t Number) = 0;
    /// After a monitoring step, where `Number` is ignored, or after an emission step.
    virtual Boolean AfterStep(std::int32_t Number) = 0;
    /// Number of susceptibility steps, by the array's bounds; 0 without an array. Never raises.
    virtual std::int32_t StepNumber() = 0;
    /// What a susceptibility step does, in the host's language. Handled.
    virtual String StepDescription(std::int32_t Number) = 0;
    /// Before a test of a sequence; a `Number` outside, and an array that was never made, as with
    /// `EnterSubrange`.
    virtual Boolean BeforeTest(std::int32_t Number) = 0;
    /// Before the wireless test of key `UKey`; an unknown key runs nothing. On a template whose
    /// tests were never made: error 9.
    virtual Boolean BeforeVKSTest(const String& UKey) = 0;
    /// Runs a wireless step; its verdict is read with `VKSGetResult`. Questions and monitored
    /// equipment give the verdict, the last of them, and never a true answer. On a template whose
    /// steps were never made: error 9.
    virtual Boolean VKSStep(const String& UKey, const String& StepKey) = 0;
    /// Verdict of the last `VKSStep`: true is passed, as is a step that is not there.
    virtual Boolean VKSGetResult() = 0;
    /// Some wireless step or matrix row has an action.
    virtual Boolean VKSStepsHaveActions() = 0;
    /// That wireless step has an action; error 9 as above.
    virtual Boolean VKSStepHaveActions(const String& UKey, const String& StepKey) = 0;
    /// Run the lists around all rows of the matrix.
    virtual Boolean VKSDUTStepGlobBefore() = 0;
    virtual Boolean VKSDUTStepGlobAfter() = 0;
    /// Their lengths; above 32767 error 6.
    virtual std::int16_t VKSDUTStepGlobAfterCount() = 0;
    virtual std::int16_t VKSDUTStepGlobBeforeCount() = 0;
    /// Runs the row of a frequency (hertz), bandwidth and power, or the row for everything when
    /// there is none. The arguments come back as the key that was looked for: -1 where a dimension
    /// has no influence, but for the frequency 0, which stays. On a matrix that was never made:
    /// error 9.
    virtual Boolean VKSDUTStep(double& Freq, std::int32_t& BandwidthID, std::int32_t& PowerID) = 0;
    /// Number of actions of that row; error 9 as above.
    virtual std::int32_t VKSDUTStepActionCount(double& Freq, std::int32_t& BandwidthID,
                                               std::int32_t& PowerID) = 0;
    /// After a test of a sequence; `Number` as before it.
    virtual Boolean AfterTest(std::int32_t Number) = 0;
    /// After the wireless test of key `UKey`.
    virtual Boolean AfterVKSTest(const String& UKey) = 0;
    /// Number of tests of a sequence or wireless template, by the array's bounds. Never raises.
    virtual std::int32_t TestNumber() = 0;
    /// Around the test loop of monitoring.
    virtual Boolean BeforeTestLoop() = 0;
    virtual Boolean AfterTestLoop() = 0;
    /// A susceptibility step is reached; `Number` as with `EnterSubrange`. Handled.
    virtual Boolean EnterStep(std::int32_t Number) = 0;
    /// A monitoring channel triggers / goes to no-go / returns to go. The answer is a code: 0
    /// nothing, 1 comment, 2 comment with the generator off, 3 stop the level sweep, 4 single
    /// measurement, 5 stop the test, 6 evaluate NB/BB to ETSI. `Name` goes to the trace only. A
    /// `Number` outside the channels is error 9. Handled.
    virtual std::int32_t Trigger(std::int32_t Number, const String& Name) = 0;
    virtual std::int32_t EnterNoGo(std::int32_t Number, const String& Name) = 0;
    virtual std::int32_t Go(std::int32_t Number, const String& Name) = 0;
    /// The code that a channel's no-go list will signal, found without running it; error 9 as
    /// above.
    virtual std::int32_t GetNoGo(std::int32_t Number) = 0;
    /// The start list of monitoring sets a device, whatever kind the object serves.
    virtual Boolean EUT_UseSetDevice() = 0;
    /// Runs the every-frequency list unless `FreqVal` (hertz) is the last one;
    /// `IsNotEmiScSwMeas` true runs it all the same. Answers the last result alone, and forgets the
    /// requests of the frequency before in any case. Handled.
    virtual Boolean NewFrequency(double FreqVal, Boolean IsNotEmiScSwMeas) = 0;
    /// Some check of the emission test's every-frequency list wants the loading position. Handled.
    virtual Boolean NewFrqCheckForAccLoading() = 0;
    /// Announces the host's wireless tests, as many at most as `AddSubrange` and the load have made
    /// places for, else error 9. Names of another length than the keys are passed over. Handled.
    virtual void SetVKSTests(const DynArray<String>& UKey, const DynArray<String>& Names) = 0;
    /// Bits of `acEutCheck` since the last call; to be asked after each `NewFrequency`.
    /// `strComment` takes the comment as a text. Handled.
    virtual std::int32_t GetCheckEutAction(Value& strComment) = 0;

    // ---- print and save ------------------------------------------------------------------------

    /// Adds the listing of `Engine`'s lists of the kind `Modul` to row `lngIdx` of `strTmps`: to
    /// column 0 the text below a heading, to column 1 the layout; one CR each where there is no
    /// text. This object serves `Modul` then and keeps a copy, without bus devices; the matrix and
    /// kinds outside the members print and copy nothing. Error 9 outside `strTmps`. Only for kinds
    /// that print: 10 while one of this object's lists of the kind runs or is printed: nothing has
    /// changed; 13 for an `Engine` of another class: the row is untouched; 9, 13, 91 (a tracked
    /// device was never looked up) in a list: those before stand. Messages may run. Handled.
    virtual void PrintStrings(aceModul Modul, _aceActionsEngine& Engine, Array2D<String>& strTmps,
                              std::int32_t lngIdx) = 0;
    /// Writes the lists of `Modul` and clears its `Change` flag before the file is released. No
    /// messages run. Handled.
    virtual void WriteActionLists(const String& FileName, aceModul Modul) = 0;
};

}  // namespace ace
