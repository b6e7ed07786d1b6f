#include <ace/core/actions_engine.h>
#include <ace/core/change_flag.h>
#include <ace/core/cleaning.h>
#include <ace/core/operation.h>
#include <ace/core/out_of_memory.h>

namespace ace {

namespace {

/// The shared port and socket end with any object, also those that other objects use. A socket that
/// the host calls dead is left alone, and its handle stands.
void CloseConnections(ThreadContext& context, ResumeNext& next) {
    const std::shared_ptr<IComPortForm> form = context.ComPortForm;
    if (form) {
        next([&] {
            if (form->ComPort().PortOpen()) {
                form->ComPort().PortOpen(false);
            }
        });
    }
    bool isOpen = false;
    next([&] {
        isOpen =
            context.SocketHandle > 0 && context.DeviceList().SocketIsOpen(context.SocketHandle);
    });
    if (isOpen) {
        next([&] { context.DeviceList().CloseSocket(context.SocketHandle); });
        context.SocketHandle = -1;
    }
    context.ComPortForm.reset();
}

/// A state, and the context that it refers to as far as that one is shared: it goes last.
struct KeptState {
    explicit KeptState(ThreadContext& used)
        : context(used.weak_from_this().lock()), state(std::make_shared<EngineState>(used)) {}

    std::shared_ptr<ThreadContext> context;
    std::shared_ptr<EngineState> state;
};

std::shared_ptr<EngineState> MakeState(ThreadContext& context) {
    return OrOutOfMemory([&] {
        const auto kept = std::make_shared<KeptState>(context);
        return std::shared_ptr<EngineState>(kept, kept->state.get());
    });
}

}  // namespace

/// The beginning of what the objects of a thread share.
namespace modManage {

/// Number of the first label of the status line.
constexpr std::int32_t FirstStatusText = 9410;
constexpr std::int32_t FirstDeviceSection = 100;

/// Counts the object; the first one makes the status display and fetches its labels. A failure
/// leaves the object counted.
static void InitModule(ThreadContext& context) {
    Guarded(context, [&](const Statements& stmt) {
        ++context.InstanceCount;
        if (context.ModuleInitialised) {
            return;
        }
        stmt([&] { context.StatusDisplay = Required(context.Factory().MakeStatusDisplay()); });
        for (std::size_t i = 0; i < context.ActionStatusTexts.size(); ++i) {
            stmt([&] {
                context.ActionStatusTexts[i] =
                    context.Language().Text(FirstStatusText + static_cast<std::int32_t>(i));
            });
        }
        context.DeviceSectionCounter = FirstDeviceSection;
        context.ModuleInitialised = true;
    });
}

}  // namespace modManage

aceActionsEngine::aceActionsEngine(ThreadContext& context) : x_state(MakeState(context)) {
    modManage::InitModule(context);
    context.TestRunning = false;
    context.InitReceiverPending = false;
    context.SocketHandle = -1;
    context.ComPortForm = OrOutOfMemory([&] { return MakeComPortForm(context); });
}

aceActionsEngine::~aceActionsEngine() {
    EngineState& state = x_state.OnAnyThread();
    ThreadContext& context = state.Context;
    state.EventSink = nullptr;  // an editor may keep the state longer than the host its sink
    ResumeNext next;
    CloseConnections(context, next);
    CleanLists(state);
    --context.InstanceCount;
    if (context.InstanceCount < 1) {
        context.StatusDisplay.reset();
        context.CommentForm.reset();
        context.ModuleInitialised = false;
        context.InstanceCount = 0;
    }
}

Boolean aceActionsEngine::Change() {
    return GetChange(*x_state);
}

void aceActionsEngine::Change(Boolean value) {
    const std::shared_ptr<EngineState> state = x_state;
    SetChange(*state, value);
}

Boolean aceActionsEngine::InitReceiver() {
    const Boolean pending = x_state->Context.InitReceiverPending;
    x_state->Context.InitReceiverPending = false;
    return pending;
}

/// The tree is built before the list is filled. Messages may run while the form is loaded, and the
/// host may release the editor there: then there is none to go on with.
void aceActionsEngine::LoadEditor(IListControl* ActionsList, ITreeControl* ActionsTree) {
    const std::shared_ptr<EngineState> state = x_state;
    ThreadContext& context = state->Context;
    Logged(context, EngineLines(L"LoadEditor"), NoMessage, [&](const Statements& stmt) {
        if (!context.Editor) {
            stmt([&] { context.Editor = MakeEditor(context); });
        }
        const auto editor = [&] { return Required(context.Editor); };
        stmt([&] { editor()->Load(); });
        stmt([&] { editor()->SetTreeControl(ActionsTree); });
        stmt([&] { editor()->LoadEditor(state->Modul, state->shared_from_this()); });
        stmt([&] { editor()->SetListControl(ActionsList); });
    });
}

/// Messages may run in the unloading: the host may drop this object there, or end the editor once
/// more and open another.
void aceActionsEngine::Release() {
    const std::shared_ptr<EngineState> state = x_state;
    ThreadContext& context = state->Context;
    const std::shared_ptr<IEditor> editor = context.Editor;
    if (editor) {
        editor->Unload();
        if (context.Editor == editor) {
            context.Editor.reset();
        }
    }
}

}  // namespace ace
