/// The pane of waiting.
#pragma once

#include <ace/editor/panes/pane.h>

namespace ace {

class WaitPane : public Pane {
  public:
    WaitPane(Form& form, EditorParts& parts);

    void Show(const Statements& stmt, Boolean isNew) override;
    std::optional<Refusal> Read(const Statements& stmt) override;
    Control* FirstField() override { return &txtWait; }

    ValueBox txtWait{fraAction,
                     L"txtWait",
                     pane_grid::FieldAt(0),
                     {.unit = L"s", .minimum = 0.001, .maximum = 3600.0, .text = L"0"}};
};

}  // namespace ace
