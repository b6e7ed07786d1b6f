/// The fields that action lines can set, as data: what a report about a line counts.
#pragma once

#include <ace/host/basic_types.h>

namespace ace {

/// The parameter record that a line fills.
enum class LineRecord : std::uint8_t { None, Wait, Api, Notify, Remote, SetDevice, TrackFreq };

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
    LineRecord record;
    StringView name;
    bool isReset = true;
};

/// Indexed by `LineField`.
inline constexpr LineFieldRow LineFieldTable[LineFieldCount] = {
    {LineField::Time, LineRecord::Wait, L"Time", false},
    {LineField::ApiProgram, LineRecord::Api, L"Program"},
    {LineField::ApiParameters, LineRecord::Api, L"Parameters"},
    {LineField::Message, LineRecord::Notify, L"Message"},
    {LineField::WaveFile, LineRecord::Notify, L"WaveFile"},
    {LineField::Beep, LineRecord::Notify, L"Beep"},
    {LineField::GeneratorOff, LineRecord::Notify, L"GeneratorOff"},
    {LineField::Command, LineRecord::Remote, L"Command"},
    {LineField::Iface, LineRecord::Remote, L"Iface"},
    {LineField::GpibAddress, LineRecord::Remote, L"GpibAddress"},
    {LineField::SerComPort, LineRecord::Remote, L"SerComPort"},
    {LineField::TcpHost, LineRecord::Remote, L"TcpHost"},
    {LineField::TcpPort, LineRecord::Remote, L"TcpPort"},
    {LineField::Terminator, LineRecord::Remote, L"Terminator"},
    {LineField::RemoteProgram, LineRecord::Remote, L"Program"},
    {LineField::WaitPrgSync, LineRecord::Remote, L"WaitPrgSync"},
    {LineField::DevName, LineRecord::SetDevice, L"DevName"},
    {LineField::ChanNo, LineRecord::SetDevice, L"ChanNo", false},
    {LineField::StopTest, LineRecord::SetDevice, L"StopTest"},
    {LineField::CommToTable, LineRecord::SetDevice, L"CommToTable"},
    {LineField::Notify, LineRecord::SetDevice, L"Notify"},
    {LineField::LoadingPos, LineRecord::SetDevice, L"LoadingPos"},
    {LineField::UseTimeCyc, LineRecord::SetDevice, L"UseTimeCyc"},
    {LineField::CycleTime, LineRecord::SetDevice, L"CycleTime"},
    {LineField::WaitState, LineRecord::SetDevice, L"WaitState"},
    {LineField::WaitTime, LineRecord::SetDevice, L"WaitTime"},
    {LineField::AmpState, LineRecord::SetDevice, L"AmpState"},
    {LineField::Path, LineRecord::SetDevice, L"Path", false},
    {LineField::DeviceSigPathName, LineRecord::SetDevice, L"SigPathName"},
    {LineField::MoniName, LineRecord::TrackFreq, L"MoniName"},
    {LineField::DelayTime, LineRecord::TrackFreq, L"DelayTime", false},
    {LineField::GenName, LineRecord::TrackFreq, L"GenName"},
    {LineField::TrackSigPathName, LineRecord::TrackFreq, L"SigPathName"},
    {LineField::TableName, LineRecord::TrackFreq, L"TableName"},
    {LineField::TableType, LineRecord::TrackFreq, L"TableType"},
    {LineField::TableMeasClass, LineRecord::TrackFreq, L"TableMeasClass"},
    {LineField::AskOnMeasStart, LineRecord::TrackFreq, L"AskOnMeasStart"},
};

/// The row of a field.
constexpr const LineFieldRow& RowOf(LineField field) {
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
constexpr LineFields FieldsOf(LineRecord record) {
    LineFields fields;
    for (const LineFieldRow& row : LineFieldTable) {
        if (row.record == record) {
            fields.Add(row.field);
        }
    }
    return fields;
}

}  // namespace ace
