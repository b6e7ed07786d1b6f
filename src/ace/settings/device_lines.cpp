#include <limits>

#include <ace/settings/record_lines.h>

namespace ace::modActions {

namespace {

/// Beyond the range of a single: error 6.
float SingleOf(double number) {
    constexpr auto Largest = static_cast<double>(std::numeric_limits<float>::max());
    if (number > Largest || number < -Largest) {
        Raise(Errors::Overflow);
    }
    return static_cast<float>(number);
}

}  // namespace

/// Intentional: without a third field the signal path of the device line before stays.
void ReadSetDevice(EntryLine& line) {
    aceSetDevice& record = line.Records().SetDevice;
    line.Set(LineField::DevName, record.DevName, line.Field(0));
    line.Set(LineField::ChanNo, record.ChanNo, line.StrictInteger(line.Field(1)));
    if (line.FieldCount() > 2) {
        line.Set(LineField::DeviceSigPathName, record.SigPathName, line.Field(2));
    }
    line.CountDeviceSection(record.ChanNo);
}

void WriteSetDevice(LineText& text, const p_Action& action) {
    const auto& record = RecordOf<aceSetDevice>(action);
    text.Add(record.DevName).Add(Comma).Add(record.ChanNo);
    if (!record.SigPathName.empty()) {
        text.Add(Comma).Add(record.SigPathName);
    }
}

/// Lines of older files end before the loading position.
void ReadCheckEut(EntryLine& line) {
    aceSetDevice& record = line.Records().SetDevice;
    line.Set(LineField::DevName, record.DevName, line.Field(0));
    line.Set(LineField::ChanNo, record.ChanNo, line.StrictInteger(line.Field(1)));
    line.CountDeviceSection(record.ChanNo);
    line.Set(LineField::StopTest, record.StopTest, EntryLine::Flag(line.Field(2)));
    line.Set(LineField::CommToTable, record.CommToTable, EntryLine::Flag(line.Field(3)));
    line.Set(LineField::Notify, record.Notify, EntryLine::Flag(line.Field(4)));
    line.Set(LineField::UseTimeCyc, record.UseTimeCyc, EntryLine::Flag(line.Field(5)));
    line.Set(LineField::CycleTime, record.CycleTime, line.Number(line.Field(6)));
    line.Set(LineField::WaitState, record.WaitState, EntryLine::Flag(line.Field(7)));
    line.Set(LineField::WaitTime, record.WaitTime, SingleOf(line.Number(line.Field(8))));
    if (line.FieldCount() > 9) {
        line.Set(LineField::LoadingPos, record.LoadingPos, line.Number(line.Field(9)) != 0.0);
    }
    record.LastCheck = aceSetDevice::NeverChecked;
}

void WriteCheckEut(LineText& text, const p_Action& action) {
    const auto& record = RecordOf<aceSetDevice>(action);
    text.Add(record.DevName).Add(Comma).Add(record.ChanNo).Add(Comma);
    text.AddFlag(record.StopTest).Add(Comma).AddFlag(record.CommToTable).Add(Comma);
    text.AddFlag(record.Notify).Add(Comma).AddFlag(record.UseTimeCyc).Add(Comma);
    text.AddFixed(record.CycleTime, 2).Add(Comma).AddFlag(record.WaitState).Add(Comma);
    text.AddFixed(record.WaitTime, 2).Add(Comma).AddFlag(record.LoadingPos);
}

void ReadSwitchAmp(EntryLine& line) {
    aceSetDevice& record = line.Records().SetDevice;
    line.Set(LineField::DevName, record.DevName, line.Field(0));
    line.Set(LineField::AmpState, record.AmpState, line.StrictInteger(line.Field(1)));
}

void WriteSwitchAmp(LineText& text, const p_Action& action) {
    const auto& record = RecordOf<aceSetDevice>(action);
    text.Add(record.DevName).Add(Comma).Add(record.AmpState);
}

void ReadSwitchUnit(EntryLine& line) {
    aceSetDevice& record = line.Records().SetDevice;
    line.Set(LineField::DevName, record.DevName, line.Field(0));
    line.Set(LineField::Path, record.Path, line.Field(1));
}

void WriteSwitchUnit(LineText& text, const p_Action& action) {
    const auto& record = RecordOf<aceSetDevice>(action);
    text.Add(record.DevName).Add(Comma).Add(record.Path);
}

}  // namespace ace::modActions
