/// The fields that action lines can set, as data: what a report about a line counts.
#pragma once

#include <ace/core/action_kinds.h>

namespace ace {

/// A field of a parameter record that some line can set. Run-time fields are not among them.
enum class LineField : std::uint8_t {
    Time,
    ApiProgram,
    ApiParameters,
    Message,
    WaveFile,
    Beep,
    GeneratorOff,
    Command,
    Iface,
    GpibAddress,
    SerComPort,
    TcpHost,
    TcpPort,
    Terminator,
    RemoteProgram,
    WaitPrgSync,
    DevName,
    ChanNo,
    StopTest,
    CommToTable,
    Notify,
    LoadingPos,
    UseTimeCyc,
    CycleTime,
    WaitState,
    WaitTime,
    AmpState,
    Path,
    DeviceSigPathName,
    MoniName,
    DelayTime,
    GenName,
    TrackSigPathName,
    TableName,
    TableType,
    TableMeasClass,
    AskOnMeasStart,
};
/// Number of members of `LineField`.
inline constexpr std::size_t LineFieldCount = 37;

/// One field: its record, its name there, and whether every section begins with its reset value.
struct LineFieldRow {
    LineField field;
    RecordType record;
    StringView name;
    bool isReset = true;
};

/// Indexed by `LineField`.
inline constexpr LineFieldRow LineFieldTable[LineFieldCount] = {
    {LineField::Time, RecordType::Wait, L"Time", false},
    {LineField::ApiProgram, RecordType::Api, L"Program"},
    {LineField::ApiParameters, RecordType::Api, L"Parameters"},
    {LineField::Message, RecordType::Notify, L"Message"},
    {LineField::WaveFile, RecordType::Notify, L"WaveFile"},
    {LineField::Beep, RecordType::Notify, L"Beep"},
    {LineField::GeneratorOff, RecordType::Notify, L"GeneratorOff"},
    {LineField::Command, RecordType::Remote, L"Command"},
    {LineField::Iface, RecordType::Remote, L"Iface"},
    {LineField::GpibAddress, RecordType::Remote, L"GpibAddress"},
    {LineField::SerComPort, RecordType::Remote, L"SerComPort"},
    {LineField::TcpHost, RecordType::Remote, L"TcpHost"},
    {LineField::TcpPort, RecordType::Remote, L"TcpPort"},
    {LineField::Terminator, RecordType::Remote, L"Terminator"},
    {LineField::RemoteProgram, RecordType::Remote, L"Program"},
    {LineField::WaitPrgSync, RecordType::Remote, L"WaitPrgSync"},
    {LineField::DevName, RecordType::SetDevice, L"DevName"},
    {LineField::ChanNo, RecordType::SetDevice, L"ChanNo", false},
    {LineField::StopTest, RecordType::SetDevice, L"StopTest"},
    {LineField::CommToTable, RecordType::SetDevice, L"CommToTable"},
    {LineField::Notify, RecordType::SetDevice, L"Notify"},
    {LineField::LoadingPos, RecordType::SetDevice, L"LoadingPos"},
    {LineField::UseTimeCyc, RecordType::SetDevice, L"UseTimeCyc"},
    {LineField::CycleTime, RecordType::SetDevice, L"CycleTime"},
    {LineField::WaitState, RecordType::SetDevice, L"WaitState"},
    {LineField::WaitTime, RecordType::SetDevice, L"WaitTime"},
    {LineField::AmpState, RecordType::SetDevice, L"AmpState"},
    {LineField::Path, RecordType::SetDevice, L"Path", false},
    {LineField::DeviceSigPathName, RecordType::SetDevice, L"SigPathName"},
    {LineField::MoniName, RecordType::TrackFreq, L"MoniName"},
    {LineField::DelayTime, RecordType::TrackFreq, L"DelayTime", false},
    {LineField::GenName, RecordType::TrackFreq, L"GenName"},
    {LineField::TrackSigPathName, RecordType::TrackFreq, L"SigPathName"},
    {LineField::TableName, RecordType::TrackFreq, L"TableName"},
    {LineField::TableType, RecordType::TrackFreq, L"TableType"},
    {LineField::TableMeasClass, RecordType::TrackFreq, L"TableMeasClass"},
    {LineField::AskOnMeasStart, RecordType::TrackFreq, L"AskOnMeasStart"},
};

/// The row of a field.
constexpr const LineFieldRow& LineFieldRowOf(LineField field) {
    return LineFieldTable[static_cast<std::size_t>(field)];
}

/// A set of fields.
class LineFields {
  public:
    constexpr void Add(LineField field) { x_bits |= Bit(field); }
    constexpr bool Contains(LineField field) const { return (x_bits & Bit(field)) != 0; }
    constexpr bool IsEmpty() const { return x_bits == 0; }
    /// The fields that are here and not in `other`.
    constexpr LineFields Without(LineFields other) const {
        LineFields rest;
        rest.x_bits = x_bits & ~other.x_bits;
        return rest;
    }
    bool operator==(const LineFields&) const = default;

  private:
    static constexpr std::uint64_t Bit(LineField field) {
        return std::uint64_t{1} << static_cast<unsigned>(field);
    }
    std::uint64_t x_bits = 0;
};

/// All fields of a record.
constexpr LineFields FieldsOf(RecordType record) {
    LineFields fields;
    for (const LineFieldRow& row : LineFieldTable) {
        if (row.record == record) {
            fields.Add(row.field);
        }
    }
    return fields;
}

}  // namespace ace
