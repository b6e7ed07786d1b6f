/// Controls that take an input: text, value and file boxes, and the strip of tabs.
#pragma once

#include <optional>

#include <ace/host/controls.h>
#include <ace/host/devices.h>

namespace ace {

/// A box with a text in it; lines end with CR LF.
class TextBox : public ControlOf<ControlKind::TextBox> {
  public:
    TextBox(ControlPlace place, String name, ControlFields design = {}, String initial = {})
        : ControlOf(place, std::move(name), std::move(design)), text(std::move(initial)) {}

    /// Puts `newText` into the box in place of all that was there, the caret behind it, and runs
    /// `onChange`.
    void Type(String newText);
    /// Puts `insertion` in place of the selection, or at the caret, goes on behind it, and runs
    /// `onChange`. A selection that reaches beyond the text ends with it.
    void Insert(StringView insertion);
    void SelectAll();
    /// Files are dropped on the box: their whole paths.
    void Drop(const std::vector<String>& files) const;
    void Leave() override { Run(onLeave); }

    String text;
    Boolean multiLine;                 ///< Enter begins a line; it has one line otherwise
    std::int32_t selectionStart = 0;   ///< the caret: characters before the selection
    std::int32_t selectionLength = 0;  ///< characters selected behind it
    ControlHandler onChange;
    ControlHandler onLeave;
    std::function<void(const std::vector<String>& files)> onDrop;
};

/// What a value box is designed with.
struct ValueFields {
    String unit = {};
    double minimum = 0.0;
    double maximum = 0.0;
    std::optional<std::int32_t> decimals = {};  ///< digits behind the separator; none: as needed
    String text = {};                           ///< what is typed or shown, without the unit
};

/// A box for a number with a unit. The text stays as it was typed: its limits are for those who
/// ask, and nothing is put right in silence.
class ValueBox : public ControlOf<ControlKind::ValueBox>, public ValueFields {
  public:
    ValueBox(ControlPlace place, String name, ControlFields design = {}, ValueFields fields = {})
        : ControlOf(place, std::move(name), std::move(design)), ValueFields(std::move(fields)) {}

    /// The number at the start of the text, with a point or a comma as its separator; 0 without
    /// one, infinite beyond the range of a double.
    double Value() const;
    bool IsInLimits() const { return Value() >= minimum && Value() <= maximum; }
    /// Puts `newText` into the box and runs `onChange`; the input goes on until it is ended.
    void Type(String newText);
    /// The operator is done with the input, by a key or by going elsewhere: runs `onEndInput`, once
    /// for an input, and not at all when nothing was typed.
    void EndInput();
    void Leave() override { EndInput(); }
    void Forget() override { x_isTyping = false; }

    ControlHandler onChange;
    ControlHandler onEndInput;

  private:
    bool x_isTyping = false;
};

/// What a file box is designed with.
struct FileFields {
    String fileName = {};   ///< empty for no file
    bool ofTables = false;  ///< a calibration table of the host is chosen, not any file
    ITableType tableType = 0;
    ITableMeasClass tableMeasClass = 0;
    String filter = {};  ///< of the view's file dialog, as in `FileQuestion`; empty for all files
};

/// A box that shows a file and lets the operator choose another one.
class FileBox : public ControlOf<ControlKind::FileBox>, public FileFields {
  public:
    FileBox(ControlPlace place, String name, ControlFields design = {}, FileFields fields = {})
        : ControlOf(place, std::move(name), std::move(design)), FileFields(std::move(fields)) {}

    /// Takes a file, empty for none, and runs `onChange`.
    void ChooseFile(String name);
    /// Takes a table and runs `onChange`.
    void ChooseTable(ITableType type, ITableMeasClass measClass, String name);

    ControlHandler onChange;
};

/// One of the tabs of a strip.
struct Tab {
    String caption = {};
    Boolean visible = true;
};

/// Tabs in one row, of which one is in front. What stands on them is in containers of its own,
/// which the form shows and hides.
class TabStrip : public ControlOf<ControlKind::TabStrip, Container> {
  public:
    TabStrip(ControlPlace place, String name, ControlFields design = {},
             std::vector<Tab> designTabs = {})
        : ControlOf(place, std::move(name), std::move(design)), tabs(std::move(designTabs)) {}

    /// Brings a tab to the front and runs `onSelect` with the one that was there before, to which
    /// the handler may go back by setting `current`. Nothing runs for the one in front; a hidden
    /// tab, or none of that number: error 5.
    void Select(std::int32_t index);

    std::vector<Tab> tabs;
    std::int32_t current = 0;  ///< the tab in front, from 0
    std::function<void(std::int32_t before)> onSelect;
};

}  // namespace ace
