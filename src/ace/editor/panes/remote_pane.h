/// The pane of remote commands and programs.
#pragma once

#include <ace/editor/panes/pane.h>

namespace ace {

class RemotePane : public Pane {
  public:
    RemotePane(Form& form, EditorParts& parts);

    void FillLists() override;
    void Show(const Statements& stmt, Boolean isNew) override;
    std::optional<Refusal> Read(const Statements& stmt) override;
    Control* FirstField() override { return &txtGpibCommand; }
    TextBox* VariableField() override { return &txtGpibCommand; }
    Button* VariableButton() override { return &cb_show_VKSVars; }
    Button* TestButton() override { return &cmdTestAction; }

    Label lblCommand{fraAction, L"lblCommand", pane_grid::CaptionAt(0, L"Command")};
    TextBox txtGpibCommand{fraAction, L"txtGpibCommand", pane_grid::FieldAt(0)};
    Button cb_show_VKSVars{fraAction, L"cb_show_VKSVars(1)", VariableButtonAt(7)};
    Label lblInterface{fraAction, L"lblInterface", pane_grid::CaptionAt(1, L"Schnittstelle")};
    DropDown cboIface{fraAction, L"cboIface", pane_grid::FieldAt(1)};
    Label lblTerminator{fraAction, L"lblTerminator",
                        pane_grid::CaptionAt(2, L"End-of-string character")};
    DropDown cboTerminator{fraAction, L"cboTerminator", pane_grid::FieldAt(2)};
    Label lblGpibAddress{fraAction, L"lblGpibAddress", pane_grid::CaptionAt(3, L"Address")};
    DropDown cboGpibAddress{fraAction, L"cboGpibAddress", pane_grid::FieldAt(3)};
    Label lblPort{fraAction, L"lblPort", pane_grid::CaptionAt(4, L"Remote Port")};
    DropDown cboComPort{fraAction, L"cboComPort", pane_grid::FieldAt(4)};
    TextBox txtTcpPort{fraAction, L"txtTcpPort", pane_grid::FieldAt(4)};
    Label lblHost{fraAction, L"lblHost", pane_grid::CaptionAt(3, L"Remote Host")};
    TextBox txtHost{fraAction, L"txtHost", pane_grid::FieldAt(3)};
    Label lblDll{fraAction, L"lblDll", pane_grid::CaptionAt(5, L"Program")};
    TextBox txtDll{fraAction, L"txtDll", pane_grid::FieldAt(5)};
    Button cmdSelDll{fraAction, L"cmdSelDll", pane_grid::BesideAt(5, L"...")};
    CheckBox chkWaitForProgramCompleted{
        fraAction, L"chkWaitForProgramCompleted",
        pane_grid::LineAt(6, L"Wait until Program has confirmed execution in MacroSync.ini")};
    Button cmdTestAction{fraAction, L"cmdTestAction(1)", pane_grid::ButtonAt(7, 0, L"Test")};

  private:
    void InterfaceChosen();
    void ShowInterface(std::int32_t iface);
    void AddressChosen();
    void TakeTcpPort();
    void SelectProgram();
    void KeepProgram(const String& program);
    void TakeProgram(const String& file);
    void ShowAddress(const aceRemote& record);
    std::optional<Refusal> ReadAddress(const Statements& stmt, aceRemote& record);
};

}  // namespace ace
