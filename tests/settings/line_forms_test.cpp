#include <ace/settings/keyword_table.h>

#include "settings/section_fixture.h"

namespace ace {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

String Plain(const String& text) {
    return text;
}
String Plain(double number) {
    return std::to_wstring(number);
}
String Plain(Boolean flag) {
    return flag ? L"yes" : L"no";
}

/// What an action has in the field of a record, as text.
template <auto Member, class Record>
String Of(const p_Action& action) {
    const auto& value = RecordOf<Record>(action).*Member;
    if constexpr (std::is_floating_point_v<std::remove_cvref_t<decltype(value)>>) {
        return Plain(static_cast<double>(value));
    } else {
        return Plain(value);
    }
}
struct Stored {
    LineField field;
    String (*text)(const p_Action& action);
};
const Stored StoredFields[] = {
    {LineField::Time, Of<&aceWait::Time, aceWait>},
    {LineField::Message, Of<&aceNotify::Message, aceNotify>},
    {LineField::WaveFile, Of<&aceNotify::WaveFile, aceNotify>},
    {LineField::Beep, Of<&aceNotify::Beep, aceNotify>},
    {LineField::GeneratorOff, Of<&aceNotify::GeneratorOff, aceNotify>},
    {LineField::Command, Of<&aceRemote::Command, aceRemote>},
    {LineField::Iface, Of<&aceRemote::Iface, aceRemote>},
    {LineField::GpibAddress, Of<&aceRemote::GpibAddress, aceRemote>},
    {LineField::SerComPort, Of<&aceRemote::SerComPort, aceRemote>},
    {LineField::TcpHost, Of<&aceRemote::TcpHost, aceRemote>},
    {LineField::TcpPort, Of<&aceRemote::TcpPort, aceRemote>},
    {LineField::Terminator, Of<&aceRemote::Terminator, aceRemote>},
    {LineField::RemoteProgram, Of<&aceRemote::Program, aceRemote>},
    {LineField::WaitPrgSync, Of<&aceRemote::WaitPrgSync, aceRemote>},
    {LineField::DevName, Of<&aceSetDevice::DevName, aceSetDevice>},
    {LineField::ChanNo, Of<&aceSetDevice::ChanNo, aceSetDevice>},
    {LineField::StopTest, Of<&aceSetDevice::StopTest, aceSetDevice>},
    {LineField::CommToTable, Of<&aceSetDevice::CommToTable, aceSetDevice>},
    {LineField::Notify, Of<&aceSetDevice::Notify, aceSetDevice>},
    {LineField::LoadingPos, Of<&aceSetDevice::LoadingPos, aceSetDevice>},
    {LineField::UseTimeCyc, Of<&aceSetDevice::UseTimeCyc, aceSetDevice>},
    {LineField::CycleTime, Of<&aceSetDevice::CycleTime, aceSetDevice>},
    {LineField::WaitState, Of<&aceSetDevice::WaitState, aceSetDevice>},
    {LineField::WaitTime, Of<&aceSetDevice::WaitTime, aceSetDevice>},
    {LineField::AmpState, Of<&aceSetDevice::AmpState, aceSetDevice>},
    {LineField::Path, Of<&aceSetDevice::Path, aceSetDevice>},
    {LineField::DeviceSigPathName, Of<&aceSetDevice::SigPathName, aceSetDevice>},
    {LineField::MoniName, Of<&aceTrackFreq::MoniName, aceTrackFreq>},
    {LineField::DelayTime, Of<&aceTrackFreq::DelayTime, aceTrackFreq>},
    {LineField::GenName, Of<&aceTrackFreq::GenName, aceTrackFreq>},
    {LineField::TrackSigPathName, Of<&aceTrackFreq::SigPathName, aceTrackFreq>},
    {LineField::TableName, Of<&aceTrackFreq::TableName, aceTrackFreq>},
    {LineField::TableType, Of<&aceTrackFreq::TableType, aceTrackFreq>},
    {LineField::TableMeasClass, Of<&aceTrackFreq::TableMeasClass, aceTrackFreq>},
    {LineField::AskOnMeasStart, Of<&aceTrackFreq::AskOnMeasStart, aceTrackFreq>},
};

/// A line that names all fields of its form, in a list that knows it.
struct FormLine {
    String keyword;
    std::vector<String> fields;
    std::size_t list = 0;
};
constexpr std::size_t FreqIndex = 2;
const FormLine FormLines[] = {
    {L"WAIT:", {L"5"}},
    {L"NOTIFY:", {L"m", L"w", L"0"}},
    {L"QUESTION:", {L"m", L"w", L"0"}},
    {L"COMMENT:", {L"0"}},
    {L"REMOTE:", {L"", L"9", L"v", L"w", L"p", L"0", L""}},
    {L"REMOTE:", {L"c", L"0", L"5", L"5", L"p", L"0", L""}},
    {L"REMOTE:", {L"c", L"1", L"5", L"5", L"p", L"0", L""}},
    {L"REMOTE:", {L"c", L"2", L"h", L"5:5", L"p", L"0", L""}},
    {L"REMOTE:", {L"c", L"9", L"u", L"v", L"p", L"0", L""}},
    {L"GPIB:", {L"5", L"5", L"c"}},
    {L"SETDEV:", {L"d", L"5", L"s"}},
    {L"CHECKEUT:", {L"d", L"5", L"0", L"0", L"0", L"0", L"5", L"0", L"5", L"0"}},
    {L"MONITOREUT:", {L"d", L"5", L"0", L"0", L"0", L"0", L"5", L"0", L"5", L"0"}},
    {L"SWITCHAMP:", {L"d", L"5"}},
    {L"SWITCHUNIT:", {L"d", L"p"}},
    {L"SYNCGEN:", {L"g", L"t", L"5", L"5", L"0", L"s"}, FreqIndex},
    {L"FREQTRACK:", {L"g", L"t", L"5", L"5", L"0", L"s"}, FreqIndex},
    {L"FREQTRACK:", {L"m", L"5"}, FreqIndex},
};

String Joined(const std::vector<String>& fields) {
    String value;
    for (const String& field : fields) {
        value += (&field == fields.data() ? L"" : L",") + field;
    }
    return value;
}

/// Whether there is a command, and its transport.
bool ChoosesForm(const FormLine& line, std::size_t index) {
    return line.keyword == L"REMOTE:" && (index == 1 || (index == 0 && line.fields[0].empty()));
}

LineForm FormOf(const FormLine& line) {
    return FindKeyword(line.keyword)->form(Joined(line.fields));
}

/// What a reader makes of "x".
struct ReadingRule {
    FieldReading reading;
    bool refusesText;
    String same;  ///< what it reads as the same
};
const ReadingRule ReadingRules[] = {
    {FieldReading::Text, false, L"x"},      {FieldReading::Number, false, L"0"},
    {FieldReading::StrictNumber, true, {}}, {FieldReading::Truth, true, {}},
    {FieldReading::Flag, false, L"0"},      {FieldReading::Port, false, L"0:0"},
    {FieldReading::Unread, false, L"x"},
};

struct LineFormsTest : test::SectionTest {
    p_Action ActionOf(const FormLine& line) {
        target = {};
        ReadList(line.list, {line.keyword + Joined(line.fields)});
        return Entry(0, line.list);
    }
    /// The fields in which an action differs when field `index` of its line says `text`.
    std::vector<LineField> ChangedBy(const FormLine& line, std::size_t index, const String& text) {
        const p_Action before = ActionOf(line);
        FormLine other = line;
        other.fields[index] = text;
        const p_Action after = ActionOf(other);
        std::vector<LineField> changed;
        for (const Stored& stored : StoredFields) {
            const bool isOfRecord =
                FindActionKind(before.ActionType)->record == LineFieldRowOf(stored.field).record;
            if (isOfRecord && stored.text(before) != stored.text(after)) {
                changed.push_back(stored.field);
            }
        }
        return changed;
    }
};

TEST_F(LineFormsTest, EveryReaderThatDividesItsValueHasAForm) {
    for (const KeywordRow& row : KeywordTable()) {
        const bool isListed = std::ranges::find(FormLines, String(row.keyword),
                                                &FormLine::keyword) != std::end(FormLines);
        EXPECT_EQ(row.form(L"").fields.empty(), !isListed) << String(row.keyword).c_str();
        EXPECT_TRUE(isListed || row.form(L"").isOpen);
    }
}

TEST_F(LineFormsTest, AFormHasTheFieldsOfItsLine) {
    for (const FormLine& line : FormLines) {
        EXPECT_EQ(FormOf(line).fields.size(), line.fields.size())
            << testing::PrintToString(line.keyword + Joined(line.fields));
    }
}

TEST_F(LineFormsTest, EachFieldIsTheOneThatTheReaderFillsFromThere) {
    for (const FormLine& line : FormLines) {
        const LineForm form = FormOf(line);
        for (std::size_t i = 0; i < form.fields.size(); ++i) {
            SCOPED_TRACE(testing::PrintToString(line.keyword + Joined(line.fields)));
            SCOPED_TRACE(i);
            const FormField& field = form.fields[i];
            if (field.reading == FieldReading::Unread) {
                EXPECT_THAT(ChangedBy(line, i, L"1"), IsEmpty());
            } else if (!ChoosesForm(line, i)) {
                const String other = field.reading == FieldReading::Port ? L"1:5" : L"1";
                EXPECT_THAT(ChangedBy(line, i, other), ElementsAre(field.field));
            }
        }
    }
}

TEST_F(LineFormsTest, EachFieldIsReadAsItsFormSays) {
    for (const FormLine& line : FormLines) {
        const LineForm form = FormOf(line);
        for (std::size_t i = 0; i < form.fields.size(); ++i) {
            const auto rule =
                std::ranges::find(ReadingRules, form.fields[i].reading, &ReadingRule::reading);
            SCOPED_TRACE(testing::PrintToString(line.keyword + Joined(line.fields)));
            SCOPED_TRACE(i);
            if (line.fields[i].empty() && ChoosesForm(line, i)) {
                continue;
            }
            FormLine text = line;
            text.fields[i] = L"x";
            p_Action action;
            const std::int32_t error = test::ErrorOf([&] { action = ActionOf(text); });
            EXPECT_EQ(error, rule->refusesText ? Errors::TypeMismatch : 0);
            text.fields[i] = rule->same;
            EXPECT_TRUE(rule->refusesText || ActionOf(text) == action);
        }
    }
}

TEST_F(LineFormsTest, ThePortOfAnEnterListHasTheTerminatorBehindAColon) {
    const FormLine& socket = FormLines[7];
    EXPECT_THAT(ChangedBy(socket, 3, L"5:1"), ElementsAre(LineField::Terminator));
    EXPECT_EQ(SplitPort(L"5:1").port, L"5");
    EXPECT_EQ(SplitPort(L"5:1").terminator, L"1");
    EXPECT_EQ(SplitPort(L"5:").terminator, L"");
    EXPECT_EQ(SplitPort(L"5").port, L"5");
    EXPECT_EQ(SplitPort(L"5").terminator, std::nullopt);
}

/// The command of the old form takes the commas behind it; everywhere else what is more is lost.
TEST_F(LineFormsTest, OnlyAnOpenFormTakesMoreCommas) {
    for (const FormLine& line : FormLines) {
        FormLine longer = line;
        longer.fields.emplace_back(L"x");
        const bool isGenerator = line.list == FreqIndex;  // a seventh field takes the path away
        EXPECT_TRUE(isGenerator || (ActionOf(longer) != ActionOf(line)) == FormOf(line).isOpen)
            << testing::PrintToString(line.keyword + Joined(line.fields));
    }
}

TEST_F(LineFormsTest, ATransportThatIsNoNumberIsTheErrorOfTheReader) {
    const auto form = FindKeyword(L"REMOTE:")->form;
    EXPECT_EQ(test::ErrorOf([&] { form(L"c,x,5,5,,0,"); }), Errors::TypeMismatch);
}

}  // namespace
}  // namespace ace
