#include <cmath>
#include <limits>

#include <ace/editor/device_classes.h>
#include <ace/editor/field_limits.h>
#include <ace/editor/input_texts.h>
#include <ace/editor/panes/track_pane.h>
#include <ace/host/checked_numbers.h>

namespace ace {

namespace {

constexpr std::int32_t CaptionText = 9162;
constexpr std::int32_t Rows = 7;
constexpr std::int32_t FrameRows = 4;
constexpr float FrameTop = 900.0F;

// The options, as indexes.
constexpr std::int32_t GeneratorMode = 0;
constexpr std::int32_t MonitorMode = 1;

void ShowFirst(DropDown& box) {
    ShowItem(box, 0);
}

}  // namespace

TrackPane::TrackPane(Form& form, EditorParts& parts)
    : Pane(form, parts, DialogPane::TrackFreq, L"Track Frequency", Rows),
      fraEmi(fraAction, L"fraEmi", pane_grid::FrameOf(FrameRows, {}, 0.0F, FrameTop)),
      fraEmiCAN(fraAction, L"fraEmiCAN", pane_grid::FrameOf(FrameRows, {}, 0.0F, FrameTop)) {
    optTrackFrq.onClick = [this] { ShowModeFields(); };
    fraEmiCAN.visible = false;
}

void TrackPane::ShowModeFields() {
    fraEmi.visible = optTrackFrq.index == GeneratorMode;
    fraEmiCAN.visible = optTrackFrq.index == MonitorMode;
}

void TrackPane::FillLists() {
    cboGenerator.Fill(NamesOfClass(Context(), DeviceClasses::Generators));
    cboCANDriver.Fill(MonitorsFor(Context(), IMonitorDevice::UseToTrack));
    std::vector<String> paths{Text(InputTexts::None)};
    for (String& name : NamesOfClass(Context(), DeviceClasses::SignalPaths)) {
        paths.push_back(std::move(name));
    }
    cboSigPath.Fill(std::move(paths));
}

void TrackPane::ShowNew() {
    constexpr double DelayOfNew = 100.0;  ///< milliseconds
    optTrackFrq.Choose(GeneratorMode);
    ShowFirst(cboGenerator);
    ShowFirst(cboSigPath);
    filLimitLine.ChooseTable(0, 0, {});
    chkAskGenOutputOn.ticked = false;
    ShowFirst(cboCANDriver);
    ShowValue(Context(), txtDelayTime, DelayOfNew);
}

/// The fields that a record with a name doesn't fill are those of a new one.
void TrackPane::ShowRecord(const aceTrackFreq& record) {
    if (record.GenName.empty() && record.MoniName.empty()) {
        return;
    }
    ShowNew();
    if (record.GenName.empty()) {
        optTrackFrq.Choose(MonitorMode);
        ShowItemOf(cboCANDriver, record.MoniName);
        ShowValue(Context(), txtDelayTime, record.DelayTime);
        return;
    }
    optTrackFrq.Choose(GeneratorMode);
    ShowItemOf(cboGenerator, record.GenName);
    if (record.SigPathName.empty()) {
        ShowFirst(cboSigPath);
    } else {
        ShowItemOf(cboSigPath, record.SigPathName);
    }
    filLimitLine.ChooseTable(record.TableType, record.TableMeasClass, record.TableName);
    chkAskGenOutputOn.ticked = record.AskOnMeasStart;
}

void TrackPane::Show(const Statements& stmt, Boolean isNew) {
    if (!EmiTemplate(Parts())) {
        return;
    }
    fraAction.caption = stmt([&] { return Text(CaptionText); });
    aceTrackFreq& record = Records().TrackFreq;
    record = stmt([&] { return RecordToShow<aceTrackFreq>(isNew); });
    ForgetDevices(record);  // of a run, which the names may not fit any more
    stmt([&] { isNew ? ShowNew() : ShowRecord(record); });
}

std::optional<Refusal> TrackPane::ReadGenerator(const Statements& stmt) {
    if (cboGenerator.Text().empty()) {
        return stmt([&] { return Refuse(InputTexts::GeneratorMissing); });
    }
    if (filLimitLine.fileName.empty()) {
        return stmt([&] { return Refuse(InputTexts::TableMissing); });
    }
    aceTrackFreq& record = Records().TrackFreq;
    record.MoniName.clear();
    record.GenName = cboGenerator.Text();
    record.SigPathName = cboSigPath.listIndex == 0 ? String() : cboSigPath.Text();
    record.TableName = filLimitLine.fileName;
    record.TableType = filLimitLine.tableType;
    record.TableMeasClass = filLimitLine.tableMeasClass;
    record.AskOnMeasStart = chkAskGenOutputOn.ticked;
    return std::nullopt;
}

/// Intentional: the name of a generator stays, unlike that of a monitoring device above.
std::optional<Refusal> TrackPane::ReadMonitor(const Statements& stmt) {
    constexpr double Longest = std::numeric_limits<std::int32_t>::max();
    const double delay = txtDelayTime.Value();
    if (delay == 0.0 || std::abs(delay) > Longest) {
        return stmt([&] { return Refusal{LimitsText(Context(), txtDelayTime), &txtDelayTime}; });
    }
    aceTrackFreq& record = Records().TrackFreq;
    record.DelayTime = stmt([&] { return RoundToLong(delay); });
    if (cboCANDriver.Text().empty()) {
        return stmt([&] { return Refuse(InputTexts::DeviceMissing); });
    }
    record.MoniName = cboCANDriver.Text();
    return std::nullopt;
}

std::optional<Refusal> TrackPane::Read(const Statements& stmt) {
    if (!EmiTemplate(Parts())) {
        return std::nullopt;
    }
    return optTrackFrq.index == GeneratorMode ? ReadGenerator(stmt) : ReadMonitor(stmt);
}

}  // namespace ace
