#include <ace/core/text.h>
#include <ace/settings/record_lines.h>

namespace ace::modActions {

namespace {

constexpr StringView ParameterSeparator = L"||";

/// A line end of a message would end its line, as a comma its field. Intentional: but for the
/// commas of a command no other text field is escaped.
constexpr StringView LineEnd = L"\r\n";
constexpr StringView LineEndInFile = L"\x7f";

/// The parameters of a macro, counted from 1; without any, one empty element at 0 remains. An array
/// that starts at 1 keeps its memory from line to line.
void ReadParameters(DynArray<String>& parameters, StringView text, std::int32_t count) {
    if (count == 0) {
        parameters.Redim(0, 0);
        return;
    }
    if (parameters.IsAllocated() && parameters.LowerBound() == 1) {
        parameters.RedimPreserve(count);
    } else {
        parameters.Redim(1, count);
    }
    for (std::int32_t i = 1; i <= count; ++i) {
        const std::size_t end = text.find(ParameterSeparator);
        parameters[i] = text.substr(0, end);
        text.remove_prefix(i == count ? text.size() : end + ParameterSeparator.size());
    }
}

std::int32_t CountSeparators(StringView text) {
    std::int32_t count = 0;
    for (std::size_t at = text.find(ParameterSeparator); at != StringView::npos;
         at = text.find(ParameterSeparator, at + ParameterSeparator.size())) {
        ++count;
    }
    return count;
}

}  // namespace

void ReadWait(EntryLine& line) {
    line.Set(LineField::Time, line.Records().Wait.Time, line.Number(line.Text()));
}

void WriteWait(LineText& text, const p_Action& action) {
    text.AddFixed(RecordOf<aceWait>(action).Time, 3);
}

void ReadApi(EntryLine& line) {
    aceAPI& record = line.Records().Api;
    const StringView value = line.Text();
    const std::int32_t count = CountSeparators(value);
    const std::size_t end = value.find(ParameterSeparator);
    line.Set(LineField::ApiProgram, record.Program, value.substr(0, end));
    const StringView parameters =
        count == 0 ? StringView() : value.substr(end + ParameterSeparator.size());
    ReadParameters(record.Parameters, parameters, count);
    line.Mark(LineField::ApiParameters);
}

void WriteApi(LineText& text, const p_Action& action) {
    const auto& record = RecordOf<aceAPI>(action);
    text.Add(record.Program);
    for (std::int32_t i = 1; i <= record.Parameters.UpperBound(); ++i) {
        text.Add(ParameterSeparator).Add(record.Parameters[i]);
    }
}

void ReadNotify(EntryLine& line) {
    aceNotify& record = line.Records().Notify;
    line.Set(LineField::Message, record.Message, line.Field(0));
    ReplaceAll(record.Message, LineEndInFile, LineEnd);
    ReplaceAll(record.Message, CommaInFile, Comma);
    line.Set(LineField::WaveFile, record.WaveFile, line.Field(1));
    line.Set(LineField::Beep, record.Beep, EntryLine::Flag(line.Field(2)));
}

void WriteNotify(LineText& text, const p_Action& action) {
    const auto& record = RecordOf<aceNotify>(action);
    String message = record.Message;
    ReplaceAll(message, LineEnd, LineEndInFile);
    ReplaceAll(message, Comma, CommaInFile);
    text.Add(message).Add(Comma).Add(record.WaveFile).Add(Comma).AddFlag(record.Beep);
}

void ReadComment(EntryLine& line) {
    aceNotify& record = line.Records().Notify;
    line.Set(LineField::GeneratorOff, record.GeneratorOff, line.Number(line.Text()) != 0.0);
    line.Set(LineField::Message, record.Message, StringView());
    line.Set(LineField::WaveFile, record.WaveFile, StringView());
    line.Set(LineField::Beep, record.Beep, false);
}

/// The comment itself is asked for when the action runs.
void WriteComment(LineText& text, const p_Action& action) {
    text.AddFlag(RecordOf<aceNotify>(action).GeneratorOff);
}

/// The old form of a message: nothing is escaped in it.
void ReadMessage(EntryLine& line) {
    line.Set(LineField::Message, line.Records().Notify.Message, line.Text());
}

/// The old form of a sound. Intentional: a file that can't be used turns into a beep.
void ReadSound(EntryLine& line) {
    aceNotify& record = line.Records().Notify;
    line.Set(LineField::WaveFile, record.WaveFile, line.Text());
    const bool beep = line.Text().empty() || !line.FileIsUsable(record.WaveFile);
    line.Set(LineField::Beep, record.Beep, beep);
}

void WriteNothing(LineText&, const p_Action&) {}

}  // namespace ace::modActions
