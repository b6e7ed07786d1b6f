/// What the core needs of parts that are built on top of it: the editor and the run-time forms. The
/// folder that owns a form defines both the form and the routine that makes it.
#pragma once

#include <memory>

#include <ace/core/engine_state.h>
#include <ace/host/serial_port.h>

namespace ace {

class IListControl;
class ITreeControl;
class ThreadContext;

/// The one editor of a thread: a form that works on a copy of a module's lists and shows it in two
/// controls of the host. The link to a control is none before it is set, after a tree that could
/// not be built, and once the control has gone: what needs it is error 91 then. Only `Load` and
/// `Unload` let messages run. While an operation works, those that set a link or replace lists are
/// error 10, with nothing changed: a host has called back where it must not.
///
/// Each Get operation copies the editor's working lists of one module back into `store`, in the
/// order of `CopyModule` for the store; a failure leaves those before it replaced. What is equal is
/// left where it stands, so that handing all lists back costs what comparing them costs.
/// `GetVKSDUTActions` hands out the matrix, and `GetVKSDUTGlobActions` its global lists.
class IEditor {
  public:
    virtual ~IEditor() = default;
    /// Runs the form's load handler, once in its life; a load that failed is tried again. The host
    /// is asked for its devices, and messages may run.
    virtual void Load() = 0;
    /// Links the tree, in the place of the one before, and sets it up. None: the link is none, and
    /// error 91.
    virtual void SetTreeControl(ITreeControl* tree) = 0;
    /// The same for the list, which is also filled anew with the kinds that the module offers.
    virtual void SetListControl(IListControl* list) = 0;
    virtual void GetMainActions(ModuleLists& store) = 0;
    virtual void GetMoniActions(ModuleLists& store) = 0;
    virtual void GetEMSAutoActionsGeneral(ModuleLists& store) = 0;
    virtual void GetEMSAutoActions(ModuleLists& store) = 0;
    virtual void GetEMIAutoActions(ModuleLists& store) = 0;
    virtual void GetTSActions(ModuleLists& store) = 0;
    virtual void GetAziChartActions(ModuleLists& store) = 0;
    virtual void GetVKSActions(ModuleLists& store) = 0;
    virtual void GetVKSDUTActions(ModuleLists& store) = 0;
    virtual void GetVKSDUTGlobActions(ModuleLists& store) = 0;
    /// Takes what `CopyFor::Store` names of its module out of `lists`, as after an edit: shows it
    /// and hands it on to the engine's store, where `Change` is set. Keys and names of tests and
    /// steps stay as they are. While a list of the module runs: error 10, and nothing is taken or
    /// shown. A step back to earlier lists is made so. When the tree can't be built, the links are
    /// none as after `LoadEditor`: the lists are taken, and the store has them with the next
    /// `Change`.
    virtual void TakeLists(const ModuleLists& lists) = 0;
    /// Remembers `moduleKind` and `engine`, which keeps the state and not the context, copies the
    /// lists of the module out of it, and builds the tree again; the list of kinds stays as it is.
    /// Without a tree the lists are copied, and then it is error 91. After any error the tree is
    /// empty and the links to both controls are none; module, engine and lists stay remembered, so
    /// that `Change` still finds them. Handled.
    virtual void LoadEditor(aceModul moduleKind, const std::shared_ptr<EngineState>& engine) = 0;
    /// Collapses the root "ETE" and those behind it; then selects and expands the node of subrange
    /// `number`, from 0. A negative number, and a module without such nodes, leaves it at that. A
    /// node that is missing is error 91: "ETE" of the matrix, with nothing done (the steps of an
    /// automatic test have none and need none), or that of the number, when all is collapsed and
    /// the selection stays. Handled.
    virtual void SetSubrange(std::int32_t number) = 0;
    /// Ends the form and drops all that it refers to, the links with the rest. While its dialog is
    /// open, the operator is first asked whether to close it, and messages run. Yes drops the
    /// entry, No takes it over as OK does. One that is refused keeps the dialog open: the form
    /// lives as long as somebody holds it, and has no engine to hand an entry to. An error of that
    /// edit comes out, and the editor is as before. Linking a tree while the operator is asked is
    /// error 10.
    virtual void Unload() = 0;
};

/// The form that tells or asks the operator.
class ICommentForm {
  public:
    virtual ~ICommentForm() = default;
    /// Shows `message` modally; messages run meanwhile. `question` puts the words Yes and No on the
    /// buttons. True when the operator asks to stop the test; "No" to a question is that.
    virtual Boolean DisplayMessage(const String& message, Boolean question) = 0;
};

/// The form that is never shown and only carries the serial port; its end closes the port.
class IComPortForm {
  public:
    virtual ~IComPortForm() = default;
    virtual ISerialPort& ComPort() = 0;
};

/// What failed on a device: the action's record, or the device's name for `atTrackFreq`.
using DeviceErrorSubject = std::variant<aceSetDevice, aceRemote, String>;

/// Tells the operator on a new form that an action failed on a device, and asks how to go on;
/// messages run meanwhile. `ignoreAll` goes in and out: only the answer "ignore all" sets it, every
/// other one leaves it. True when the operator asks to stop the test. Errors of the host's language
/// data and screen come out. The caller asks first whether the action is to fail in silence.
Boolean ShowDeviceError(ThreadContext& context, p_ActionTypes actionType, Boolean& ignoreAll,
                        const DeviceErrorSubject& subject, std::int32_t errorNumber,
                        const String& errorText);

/// Makes the editor, which is yet to be loaded.
std::shared_ptr<IEditor> MakeEditor(ThreadContext& context);
/// Makes the comment form of the thread.
std::shared_ptr<ICommentForm> MakeCommentForm(ThreadContext& context);
/// Makes a serial form with a port of its own.
std::shared_ptr<IComPortForm> MakeComPortForm(ThreadContext& context);

}  // namespace ace
