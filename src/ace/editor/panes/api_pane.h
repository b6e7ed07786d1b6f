/// The pane of API macros.
#pragma once

#include <ace/editor/panes/pane.h>
#include <ace/host/api_macro.h>

namespace ace {

/// A macro of its own is loaded to look at its inputs; it is never run. Each input has a tab, and
/// one field shows the parameter of the tab in front.
class ApiPane : public Pane {
  public:
    ApiPane(Form& form, EditorParts& parts);

    void Show(const Statements& stmt, Boolean isNew) override;
    std::optional<Refusal> Read(const Statements& stmt) override;
    TextBox* VariableField() override { return &txtAPIParameterValue; }
    Button* VariableButton() override { return &cb_show_VKSVars; }

    Label lblAPIProgram{fraAction, L"lblAPIProgram", pane_grid::CaptionAt(0, L"API Program")};
    FileBox filAPIProgram{fraAction, L"filAPIProgram", pane_grid::FieldAt(0)};
    TabStrip tabAPIParameter;
    Frame fraAPIParameterValue;
    Label lblAPIParameterValue{fraAPIParameterValue, L"lblAPIParameterValue",
                               pane_grid::CaptionAt(0, L"Parameter Value")};
    TextBox txtAPIParameterValue{fraAPIParameterValue, L"txtAPIParameterValue",
                                 pane_grid::FieldAt(0)};
    Button cb_show_VKSVars{fraAPIParameterValue, L"cb_show_VKSVars(2)", VariableButtonAt(1)};
    Frame fraAPIParameterTable;
    Label lblTableValue{fraAPIParameterTable, L"lblTableValue", pane_grid::CaptionAt(0, L"Table")};
    FileBox filAPIParameterTable{
        fraAPIParameterTable, L"filAPIParameterTable", pane_grid::FieldAt(0), {.ofTables = true}};

  private:
    void ProgramChosen();
    void LookAtProgram();
    void TellNotLoaded();
    void TabSelected(std::int32_t before);
    void ShowParameters();
    void HideParameters();
    void BringToFront(std::int32_t tab);
    void KeepField();
    std::optional<Refusal> CheckParameter(std::int32_t tab);

    std::shared_ptr<IApiMacro> x_macro;  ///< of the program that shows; none without one
};

}  // namespace ace
