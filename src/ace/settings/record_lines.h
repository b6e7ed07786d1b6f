/// Readers and writers of the values behind the keywords, one pair per form. A reader fills the
/// working record of its type and leaves alone what its line does not name; a field that is missing
/// or can't be read is error 5, 6, 9 or 13. A writer of a record asks for it: error 13 when the
/// action has another.
#pragma once

#include <ace/settings/entry_line.h>

namespace ace::modActions {

/// Between two fields of a line, and what stands in the file for a comma of a message or a command.
inline constexpr StringView Comma = L",";
inline constexpr StringView CommaInFile = L"\x01";

void ReadWait(EntryLine& line);
void WriteWait(LineText& text, const p_Action& action);
void ReadApi(EntryLine& line);
void WriteApi(LineText& text, const p_Action& action);
void ReadNotify(EntryLine& line);
void WriteNotify(LineText& text, const p_Action& action);
void ReadComment(EntryLine& line);
void WriteComment(LineText& text, const p_Action& action);
void ReadMessage(EntryLine& line);
void ReadSound(EntryLine& line);
void ReadRemote(EntryLine& line);
void WriteRemote(LineText& text, const p_Action& action);
void ReadGpib(EntryLine& line);
void ReadProgram(EntryLine& line);
void ReadSetDevice(EntryLine& line);
void WriteSetDevice(LineText& text, const p_Action& action);
void ReadCheckEut(EntryLine& line);
void WriteCheckEut(LineText& text, const p_Action& action);
void ReadSwitchAmp(EntryLine& line);
void WriteSwitchAmp(LineText& text, const p_Action& action);
void ReadSwitchUnit(EntryLine& line);
void WriteSwitchUnit(LineText& text, const p_Action& action);
void ReadTrackFreq(EntryLine& line);
void WriteTrackFreq(LineText& text, const p_Action& action);
void ReadSyncGen(EntryLine& line);
/// For the kinds whose keyword is the whole line.
void WriteNothing(LineText& text, const p_Action& action);

}  // namespace ace::modActions
