#include <ace/settings/record_lines.h>

namespace ace::modActions {

namespace {

/// Intentional: leaves the monitoring device of a line before standing, as the monitor form leaves
/// the generator; both are then tuned.
void ReadGenerator(EntryLine& line) {
    aceTrackFreq& record = line.Records().TrackFreq;
    line.Set(LineField::GenName, record.GenName, line.Field(0));
    line.Set(LineField::TableName, record.TableName, line.Field(1));
    line.Set(LineField::TableType, record.TableType, line.StrictInteger(line.Field(2)));
    line.Set(LineField::TableMeasClass, record.TableMeasClass, line.StrictInteger(line.Field(3)));
    line.Set(LineField::AskOnMeasStart, record.AskOnMeasStart, line.BooleanText(line.Field(4)));
    const bool hasPath = line.FieldCount() == 6;
    line.Set(LineField::TrackSigPathName, record.SigPathName,
             hasPath ? line.Field(5) : StringView());
}

}  // namespace

void ReadTrackFreq(EntryLine& line) {
    if (line.FieldCount() >= 5) {
        ReadGenerator(line);
        return;
    }
    aceTrackFreq& record = line.Records().TrackFreq;
    line.Set(LineField::MoniName, record.MoniName, line.Field(0));
    line.Set(LineField::DelayTime, record.DelayTime, line.StrictInteger(line.Field(1)));
}

void WriteTrackFreq(LineText& text, const p_Action& action) {
    const auto& record = RecordOf<aceTrackFreq>(action);
    if (record.GenName.empty()) {
        text.Add(record.MoniName).Add(Comma).Add(record.DelayTime);
        return;
    }
    text.Add(record.GenName).Add(Comma).Add(record.TableName).Add(Comma);
    text.Add(record.TableType).Add(Comma).Add(record.TableMeasClass).Add(Comma);
    text.AddFlag(record.AskOnMeasStart);
    if (!record.SigPathName.empty()) {
        text.Add(Comma).Add(record.SigPathName);
    }
}

/// The old form. Intentional: for a monitoring device it fails the load, as it always did, because
/// it addresses the device object, which no section has yet.
void ReadSyncGen(EntryLine& line) {
    if (line.FieldCount() < 3) {
        line.Next({LineStep::UseMoniDev, 0, {}});
        Raise(Errors::ObjectNotSet);
    }
    ReadGenerator(line);
}

}  // namespace ace::modActions
