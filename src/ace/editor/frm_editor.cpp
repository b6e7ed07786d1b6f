#include <utility>

#include <ace/core/change_flag.h>
#include <ace/core/held_lists.h>
#include <ace/core/module_columns.h>
#include <ace/core/text.h>
#include <ace/editor/action_text.h>
#include <ace/editor/drag_text.h>
#include <ace/editor/frm_editor.h>
#include <ace/editor/input_texts.h>
#include <ace/editor/moment_tree.h>
#include <ace/editor/offered_kinds.h>

namespace ace {

namespace {

constexpr std::int32_t TitleText = InputTexts::Actions;
constexpr TraceLines LoadLines = EditorLines(L"LoadEditor");

/// Takes the link away first: the editor is done with the control, whatever that answers.
template <class ControlOfHost>
void Unlink(ControlOfHost*& link) {
    if (ControlOfHost* const old = std::exchange(link, nullptr)) {
        old->SetEvents(nullptr);
    }
}

/// Links `control` in the place of the one before. A control that doesn't take the events isn't
/// linked, because nobody would tell when it goes.
template <class ControlOfHost, class Events>
void Link(ControlOfHost*& link, ControlOfHost* control, Events& events) {
    Unlink(link);
    if (control == nullptr) {
        Raise(Errors::ObjectNotSet);
    }
    control->SetEvents(&events);
    link = control;
}

}  // namespace

frmEditor::frmEditor(ThreadContext& context)
    : Form(L"frmEditor", TitleText, 0.0F, 0.0F), x_parts(context) {}

frmEditor::~frmEditor() {
    DropLinks();
}

void frmEditor::Loaded() {
    x_parts.context.Language().TranslateForm(*this);
    x_dialog.FillLists();
}

// ---- controls of the host ----------------------------------------------------------------------

void frmEditor::SetTreeControl(ITreeControl* tree) {
    if (x_isEnding) {
        Raise(Errors::ArrayInUse);
    }
    const OwnWork work(x_parts);
    Link(x_parts.m_View, tree, x_treeEvents);
    ViewOf(x_parts).SetUp({.images = imlActions()});
}

void frmEditor::SetListControl(IListControl* list) {
    const OwnWork work(x_parts);
    Link(x_parts.m_List, list, x_listEvents);
    PaletteOf(x_parts).SetUp({.images = imlActions()});
    PaletteOf(x_parts).Clear();
    for (const p_ActionTypes type : OfferedKinds(x_parts.moduleKind, EmiTemplate(x_parts))) {
        const ActionKind& kind = *FindActionKind(type);
        const String caption = TextOf(x_parts.context, kind.palette);
        PaletteOf(x_parts).Add(DragTextOfKind(type), caption, String(kind.icon));
    }
}

void frmEditor::DropLinks() noexcept {
    ResumeNext next;
    next([&] { Unlink(x_parts.m_View); });
    next([&] { Unlink(x_parts.m_List); });
}

/// So that nobody works on a tree that shows half of a module.
void frmEditor::DropHalfBuilt() noexcept {
    ResumeNext next;
    if (x_parts.m_View != nullptr) {
        next([&] { x_parts.m_View->Clear(); });
    }
    DropLinks();
}

// ---- lists -------------------------------------------------------------------------------------

void frmEditor::GetMainActions(ModuleLists& store) {
    CopyModule(aceTemplate, CopyFor::Store, x_parts.lists, store);
}
void frmEditor::GetMoniActions(ModuleLists& store) {
    CopyModule(aceMonitoring, CopyFor::Store, x_parts.lists, store);
}
void frmEditor::GetEMSAutoActionsGeneral(ModuleLists& store) {
    CopyModule(aceEMSAutoTemplateGeneral, CopyFor::Store, x_parts.lists, store);
}
void frmEditor::GetEMSAutoActions(ModuleLists& store) {
    CopyModule(aceEMSAutoTemplate, CopyFor::Store, x_parts.lists, store);
}
void frmEditor::GetEMIAutoActions(ModuleLists& store) {
    CopyModule(aceEMIAutoTemplate, CopyFor::Store, x_parts.lists, store);
}
void frmEditor::GetTSActions(ModuleLists& store) {
    CopyModule(aceTSTemplate, CopyFor::Store, x_parts.lists, store);
}
void frmEditor::GetAziChartActions(ModuleLists& store) {
    CopyModule(aceAziChart, CopyFor::Store, x_parts.lists, store);
}
void frmEditor::GetVKSActions(ModuleLists& store) {
    CopyModule(aceVKSTemplate, CopyFor::Store, x_parts.lists, store);
}
void frmEditor::GetVKSDUTActions(ModuleLists& store) {
    CopyMatrix(x_parts.lists, store);
}
void frmEditor::GetVKSDUTGlobActions(ModuleLists& store) {
    CopyMatrixGlobal(x_parts.lists, store);
}

void frmEditor::TakeLists(const ModuleLists& lists) {
    const std::shared_ptr<frmEditor> alive = shared_from_this();
    Guarded(x_parts.context, [&](const Statements& stmt) {
        const OwnWork work = stmt([&] { return OwnWork(x_parts); });
        const std::shared_ptr<EngineState> engine = stmt([&] { return Required(x_parts.engine); });
        stmt([&] { RequireFreeModule(*engine, engine->Modul); });
        stmt([&] { CopyModule(x_parts.moduleKind, CopyFor::Store, lists, x_parts.lists); });
        ShowModule(stmt);
        stmt([&] { SetChange(*engine, true); });
    });
}

// ---- showing -----------------------------------------------------------------------------------

void frmEditor::ShowModule(const Statements& stmt) {
    try {
        BuildTree(x_parts, stmt);
    } catch (...) {
        DropHalfBuilt();
        throw;
    }
}

void frmEditor::LoadEditor(aceModul moduleKind, const std::shared_ptr<EngineState>& engine) {
    const std::shared_ptr<frmEditor> alive = shared_from_this();
    const auto message = [&] { return L"Modul = " + IntegerText(moduleKind); };
    const bool isRefused = x_parts.isAtWork;
    try {
        Logged(x_parts.context, LoadLines, message, [&](const Statements& stmt) {
            const OwnWork work = stmt([&] { return OwnWork(x_parts); });
            x_parts.moduleKind = moduleKind;
            x_parts.engine = engine;
            stmt([&] { CopyModule(moduleKind, CopyFor::Editor, *engine, x_parts.lists); });
            BuildTree(x_parts, stmt);
        });
    } catch (...) {
        if (!isRefused) {
            DropHalfBuilt();
        }
        throw;
    }
}

void frmEditor::SetSubrange(std::int32_t number) {
    const std::shared_ptr<frmEditor> alive = shared_from_this();
    ace::SetSubrange(x_parts, number);
}

/// All references in one step. A dialog that a refused entry keeps open is still of its action.
void frmEditor::Unload() {
    const KeptAlive alive(x_parts);
    {
        const SetWhile ending(x_isEnding);
        x_dialog.AskToClose();
    }
    DropLinks();
    x_parts.engine.reset();
    if (!IsShown()) {
        x_parts.held = {};
    }
}

// ---- the dialog --------------------------------------------------------------------------------

void frmEditor::KeyPressed(std::int32_t key) {
    if (key == Keys::Escape) {
        x_dialog.Cancel();
    }
}

std::shared_ptr<IEditor> MakeEditor(ThreadContext& context) {
    const auto editor = std::make_shared<frmEditor>(context);
    editor->Parts().form = editor;
    return editor;
}

}  // namespace ace
