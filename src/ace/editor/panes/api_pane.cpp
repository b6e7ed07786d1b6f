#include <ace/core/text.h>
#include <ace/editor/input_texts.h>
#include <ace/editor/panes/api_pane.h>

namespace ace {

namespace {

constexpr std::int32_t Rows = 6;
constexpr std::int32_t FrameRows = 2;
constexpr float TabsTop = 900.0F;
constexpr float FrameTop = 300.0F;

constexpr std::int32_t LoadTitle = 24500;
constexpr std::int32_t NotLoadedText = 24597;
constexpr StringView NamePlaceholder = L"#Name";
constexpr StringView TabName = L"INPUT";

/// Parameters count from 1, tabs from 0.
constexpr std::int32_t ParameterOf(std::int32_t tab) {
    return tab + 1;
}

/// A placeholder such as "#FREQ#".
bool IsVariableName(StringView text) {
    constexpr std::size_t Shortest = 3;
    return text.size() >= Shortest && text.front() == L'#' && text.back() == L'#';
}

bool IsNumeric(const String& text) {
    ResumeNext next;
    return next([&] { ReadStrictNumber(WithPoint(text)); });
}

/// The parameters of `present` as far as they fit into `count` of them.
DynArray<String> Resized(const DynArray<String>& present, std::int32_t count) {
    DynArray<String> parameters;
    parameters.Redim(1, count);
    const std::int32_t last = present.IsAllocated() ? present.UpperBound() : 0;
    for (std::int32_t i = 1; i <= count && i <= last; ++i) {
        parameters[i] = present[i];
    }
    return parameters;
}

/// Bounds 0 to 0, with the one text empty.
DynArray<String> NoParameters() {
    DynArray<String> parameters;
    parameters.Redim(0, 0);
    return parameters;
}

aceAPI WithoutParameters() {
    aceAPI record;
    record.Parameters = NoParameters();
    return record;
}

}  // namespace

ApiPane::ApiPane(Form& form, EditorParts& parts)
    : Pane(form, parts, DialogPane::Api, L"API Execution", Rows),
      tabAPIParameter(fraAction, L"tabAPIParameter", pane_grid::FrameOf(4, {}, 0.0F, TabsTop)),
      fraAPIParameterValue(tabAPIParameter, L"fraAPIParameterValue",
                           pane_grid::FrameOf(FrameRows, {}, 0.0F, FrameTop)),
      fraAPIParameterTable(tabAPIParameter, L"fraAPIParameterTable",
                           pane_grid::FrameOf(FrameRows, {}, 0.0F, FrameTop)) {
    filAPIProgram.onChange = [this] { ProgramChosen(); };
    tabAPIParameter.onSelect = [this](std::int32_t before) { TabSelected(before); };
    HideParameters();
}

// ---- the program -------------------------------------------------------------------------------

void ApiPane::HideParameters() {
    tabAPIParameter.visible = false;
    fraAPIParameterValue.visible = false;
    fraAPIParameterTable.visible = false;
}

void ApiPane::TellNotLoaded() {
    String text = Text(NotLoadedText);
    ReplaceAll(text, NamePlaceholder, filAPIProgram.fileName);
    Context().UserDialogs().ShowMessageBox(text, IUserDialogs::Critical, Text(LoadTitle));
    filAPIProgram.fileName.clear();
}

/// What stands in front is kept first: the same program may have been chosen again.
void ApiPane::ProgramChosen() {
    KeepField();
    HideParameters();
    x_macro.reset();
    if (filAPIProgram.fileName.empty()) {
        return;
    }
    try {
        LookAtProgram();
    } catch (...) {
        filAPIProgram.fileName.clear();  // OK refuses a program that nobody could look at
        x_macro.reset();
        HideParameters();
        throw;
    }
}

void ApiPane::LookAtProgram() {
    const std::shared_ptr<IApiMacro> macro = Required(Context().Factory().MakeApiMacro());
    Value unread;
    if (!macro->Load(filAPIProgram.fileName, {}, {}, unread)) {
        TellNotLoaded();
        return;
    }
    x_macro = macro;
    aceAPI& record = Records().Api;
    if (!EqualNoCase(filAPIProgram.fileName, record.Program)) {
        record.Program = filAPIProgram.fileName;
    }
    ShowParameters();
}

void ApiPane::ShowParameters() {
    aceAPI& record = Records().Api;
    const std::int32_t count = Required(x_macro)->ParameterCount();
    if (count < 1) {
        record.Parameters = NoParameters();
        return;
    }
    record.Parameters = Resized(record.Parameters, count);
    tabAPIParameter.tabs.clear();
    for (std::int32_t tab = 0; tab < count; ++tab) {
        tabAPIParameter.tabs.push_back({String(TabName) + IntegerText(ParameterOf(tab))});
    }
    BringToFront(0);
    tabAPIParameter.visible = true;
}

// ---- tabs --------------------------------------------------------------------------------------

/// Shows the parameter of a tab.
void ApiPane::BringToFront(std::int32_t tab) {
    std::int32_t index = ParameterOf(tab);
    const bool isTable =
        Required(x_macro)->ParameterInfo(index).kind == MacroParameterInfo::TableKind;
    tabAPIParameter.current = tab;
    const String& parameter = std::as_const(Records().Api.Parameters)[ParameterOf(tab)];
    (isTable ? filAPIParameterTable.fileName : txtAPIParameterValue.text) = parameter;
    txtAPIParameterValue.selectionStart = txtAPIParameterValue.selectionLength = 0;
    fraAPIParameterTable.visible = isTable;
    fraAPIParameterValue.visible = !isTable;
}

/// Keeps what the field in front holds, whatever it is.
void ApiPane::KeepField() {
    if (tabAPIParameter.visible) {
        Records().Api.Parameters[ParameterOf(tabAPIParameter.current)] =
            fraAPIParameterTable.visible ? filAPIParameterTable.fileName
                                         : txtAPIParameterValue.text;
    }
}

/// Of the field that shows; what is kept has a point in every locale.
std::optional<Refusal> ApiPane::CheckParameter(std::int32_t tab) {
    String& parameter = Records().Api.Parameters[ParameterOf(tab)];
    if (fraAPIParameterTable.visible) {
        return parameter.empty()
                   ? std::optional(Refuse(InputTexts::ParameterTableMissing, &filAPIParameterTable))
                   : std::nullopt;
    }
    if (!IsNumeric(parameter) && !IsVariableName(parameter)) {
        return Refuse(InputTexts::BadParameter, &txtAPIParameterValue);
    }
    parameter = WithPoint(std::move(parameter));
    return std::nullopt;
}

void ApiPane::TabSelected(std::int32_t before) {
    const std::int32_t selected = std::exchange(tabAPIParameter.current, before);
    KeepField();
    if (const std::optional<Refusal> refusal = CheckParameter(before)) {
        Tell(Context(), *refusal);
    } else {
        BringToFront(selected);
    }
}

// ---- record and fields -------------------------------------------------------------------------

/// The macro that was looked at last need not be loaded again.
void ApiPane::Show(const Statements& stmt, Boolean isNew) {
    HideParameters();
    aceAPI& record = Records().Api;
    record = stmt([&] { return RecordToShow<aceAPI>(isNew, WithoutParameters()); });
    if (!x_macro || !EqualNoCase(filAPIProgram.fileName, record.Program)) {
        stmt([&] { filAPIProgram.ChooseFile(Records().Api.Program); });
    } else {
        stmt([&] { ShowParameters(); });
    }
}

std::optional<Refusal> ApiPane::Read(const Statements& stmt) {
    if (filAPIProgram.fileName.empty()) {
        return stmt([&] { return Refuse(InputTexts::ProgramMissing, &filAPIProgram); });
    }
    Records().Api.Program = filAPIProgram.fileName;
    if (!tabAPIParameter.visible) {
        return std::nullopt;
    }
    stmt([&] { KeepField(); });
    const std::int32_t front = tabAPIParameter.current;
    for (std::int32_t tab = 0; tab < std::ssize(tabAPIParameter.tabs); ++tab) {
        stmt([&] { BringToFront(tab); });
        if (std::optional<Refusal> refusal = stmt([&] { return CheckParameter(tab); })) {
            return refusal;
        }
    }
    stmt([&] { BringToFront(front); });
    return std::nullopt;
}

}  // namespace ace
