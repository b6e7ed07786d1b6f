/// How the rules look, for their table.
#pragma once

#include "workbench/check/rules.h"

namespace ace::workbench {

/// Why a line stops the load.
enum class StopCause {
    NoEqualSign,
    NoColon,
    SmallCount,
    LargeCount,
    NoCount,
    BeyondCount,
    NoNumber,
    LargeNumber,
    FewFields,
    Other,
};

namespace RuleTests {

// ---- stop_rules.cpp ----------------------------------------------------------------------------

void FindStops(const CheckedFile& file, const CheckedSection& section, const Found& found,
               StopCause cause);
template <StopCause Cause>
void Stop(const CheckedFile& file, const CheckedSection& section, const Found& found) {
    FindStops(file, section, found, Cause);
}
void LoadFails(const CheckedFile& file, const Found& found);
void EmptyEntry(const CheckedFile& file, const CheckedSection& section, const Found& found);

// ---- save_rules.cpp ----------------------------------------------------------------------------

void SaveChanges(const CheckedFile& file, const CheckedSection& section, const Found& found);

// ---- lost_rules.cpp ----------------------------------------------------------------------------

/// " Did you mean NumOfEnterActions?" for a key that is nearly one of a list, or nothing.
String KeyHint(StringView key);
/// The code of the terminator that the line of a command over TCP/IP has; nothing without one.
std::optional<std::int32_t> WrittenTerminator(const CheckedAction& action);
void UnknownKeyword(const CheckedFile& file, const CheckedSection& section, const CheckedLine& line,
                    const Found& found);
void KeywordOfOtherList(const CheckedFile& file, const CheckedSection& section,
                        const CheckedLine& line, const Found& found);
void ForeignKey(const CheckedFile& file, const CheckedSection& section, const CheckedLine& line,
                const Found& found);
void EntryTwice(const CheckedFile& file, const CheckedSection& section, const CheckedLine& line,
                const Found& found);
void CountTwice(const CheckedFile& file, const CheckedSection& section, const Found& found);
void LostTerminator(const CheckedAction& action, const Found& found);
void LostDecimals(const CheckedAction& action, const Found& found);
void MoreFields(const CheckedAction& action, const Found& found);

// ---- section_rules.cpp -------------------------------------------------------------------------

void NoSections(const CheckedFile& file, const Found& found);
void SectionBeyond(const CheckedFile& file, const Found& found);
void MisspeltSection(const CheckedFile& file, const Found& found);
void SectionUnread(const CheckedFile& file, const Found& found);
void SectionTwice(const CheckedFile& file, const Found& found);
void HeaderBroken(const CheckedFile& file, const Found& found);
void NumberWithoutSection(const CheckedFile& file, const Found& found);
void MisspeltKey(const CheckedFile& file, const Found& found);
void KeyTwice(const CheckedFile& file, const Found& found);
void NoDeviceSection(const CheckedAction& action, const Found& found);
void UnusedDeviceSection(const CheckedFile& file, const Found& found);

// ---- inherited_rules.cpp -----------------------------------------------------------------------

void InheritedMessage(const CheckedAction& action, const Found& found);
void InheritedSound(const CheckedAction& action, const Found& found);
void InheritedCommand(const CheckedAction& action, const Found& found);
void InheritedProgram(const CheckedAction& action, const Found& found);
void InheritedTerminator(const CheckedAction& action, const Found& found);
void InheritedSignalPath(const CheckedAction& action, const Found& found);
void InheritedGenerator(const CheckedAction& action, const Found& found);
void InheritedMonitor(const CheckedAction& action, const Found& found);
void InheritedLoadingPosition(const CheckedAction& action, const Found& found);

// ---- run_rules.cpp -----------------------------------------------------------------------------

void SkippedAtFrequency(const CheckedAction& action, const Found& found);
void ListNeverRuns(const CheckedFile& file, const CheckedSection& section, const Found& found);
void TrackingOutside(const CheckedAction& action, const Found& found);
void SignalStopsTest(const CheckedAction& action, const Found& found);
void StopsHere(const CheckedAction& action, const Found& found);
void TracksNothing(const CheckedAction& action, const Found& found);
void ParksNothing(const CheckedAction& action, const Found& found);
void WaitsForOperator(const CheckedAction& action, const Found& found);
void PlaceholderStays(const CheckedAction& action, const Found& found);
void RadiationStays(const CheckedFile& file, const Found& found);

// ---- channel_rules.cpp -------------------------------------------------------------------------

void ChannelEventBeyond(const CheckedFile& file, const Found& found);

// ---- wireless_rules.cpp ------------------------------------------------------------------------

void RowRuledOut(const CheckedFile& file, const Found& found);
void WirelessKeyTwice(const CheckedFile& file, const Found& found);

// ---- value_rules.cpp ---------------------------------------------------------------------------

void TextForNumber(const CheckedAction& action, const Found& found);
void FlagUnknown(const CheckedAction& action, const Found& found);
void WaitOutside(const CheckedAction& action, const Found& found);
void UnknownTransport(const CheckedAction& action, const Found& found);
void UnknownTerminator(const CheckedAction& action, const Found& found);
void NoTerminator(const CheckedAction& action, const Found& found);
void PortOutside(const CheckedAction& action, const Found& found);
void HostMissing(const CheckedAction& action, const Found& found);
/// 0 to 4, which an amplifier knows.
bool IsAmplifierState(std::int32_t state);
void AmplifierStateOutside(const CheckedAction& action, const Found& found);
void NothingToDo(const CheckedAction& action, const Found& found);

// ---- bench_rules.cpp ---------------------------------------------------------------------------

void NoSuchDevice(const CheckedAction& action, const Found& found);
void DeviceOfOtherClass(const CheckedAction& action, const Found& found);
void NoSuchPath(const CheckedAction& action, const Found& found);
void NoSuchTable(const CheckedAction& action, const Found& found);
void ChannelWithoutDevice(const CheckedFile& file, const Found& found);

// ---- beside_rules.cpp --------------------------------------------------------------------------

void AnswerForNoMoment(const CheckedFile& file, const Found& found);
void AnswerForNoMessage(const CheckedFile& file, const Found& found);
void AnswerForNoDevice(const CheckedFile& file, const Found& found);
void FaultForNoDevice(const CheckedFile& file, const Found& found);
void FaultForNothing(const CheckedFile& file, const Found& found);
void FailureNeverRead(const CheckedFile& file, const Found& found);

// ---- here_rules.cpp ----------------------------------------------------------------------------

void SoundNotHere(const CheckedAction& action, const Found& found);
void ProgramNotHere(const CheckedAction& action, const Found& found);
void MacroNotHere(const CheckedAction& action, const Found& found);

}  // namespace RuleTests

}  // namespace ace::workbench
