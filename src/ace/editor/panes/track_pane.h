/// The pane of the actions that follow the frequency.
#pragma once

#include <ace/editor/panes/pane.h>

namespace ace {

/// Only a template that measures emission has what stands here. In any other the pane shows as it
/// is, and the record stays.
class TrackPane : public Pane {
  public:
    TrackPane(Form& form, EditorParts& parts);

    /// Asks the host for generators, signal paths, and the monitoring devices that can follow.
    void FillLists() override;
    void Show(const Statements& stmt, Boolean isNew) override;
    std::optional<Refusal> Read(const Statements& stmt) override;

    OptionGroup optTrackFrq{fraAction,
                            L"optTrackFrq",
                            pane_grid::LineAt(0),
                            {{L"RF Generator"}, {L"Monitoring Device"}},
                            0};
    Frame fraEmi;
    Label lblGenerator{fraEmi, L"lblGenerator", pane_grid::CaptionAt(0, L"Generator")};
    DropDown cboGenerator{fraEmi, L"cboGenerator", pane_grid::FieldAt(0)};
    Label lblSigPath{fraEmi, L"lblSigPath", pane_grid::CaptionAt(1, L"Signal Path")};
    DropDown cboSigPath{fraEmi, L"cboSigPath", pane_grid::FieldAt(1)};
    Label Label1{fraEmi, L"Label1", pane_grid::CaptionAt(2, L"Pegeltabelle")};
    FileBox filLimitLine{fraEmi, L"filLimitLine", pane_grid::FieldAt(2), {.ofTables = true}};
    CheckBox chkAskGenOutputOn{
        fraEmi, L"chkAskGenOutputOn",
        pane_grid::LineAt(3, L"Bei Teststart nachfragen, ob der Generator aktiviert werden soll")};
    Frame fraEmiCAN;
    Label lblDeviceName{fraEmiCAN, L"lblDeviceName", pane_grid::CaptionAt(0, L"Device Name")};
    DropDown cboCANDriver{fraEmiCAN, L"cboCANDriver", pane_grid::FieldAt(0)};
    Label lblDelay{fraEmiCAN, L"lblDelay", pane_grid::CaptionAt(1, L"Delay")};
    ValueBox txtDelayTime{
        fraEmiCAN,
        L"txtDelayTime",
        pane_grid::FieldAt(1),
        {.unit = L"ms", .minimum = 1.0, .maximum = 600.0, .decimals = 0, .text = L"100"}};

  private:
    void ShowModeFields();
    void ShowNew();
    void ShowRecord(const aceTrackFreq& record);
    std::optional<Refusal> ReadGenerator(const Statements& stmt);
    std::optional<Refusal> ReadMonitor(const Statements& stmt);
};

}  // namespace ace
