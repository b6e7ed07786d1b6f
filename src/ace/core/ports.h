/// What the core needs of parts that are built on top of it: the editor and the run-time forms. The
/// folder that owns a form defines both the form and the routine that makes it.
#pragma once

#include <memory>

#include <ace/core/engine_state.h>
#include <ace/host/serial_port.h>

namespace ace {

/// The one editor of a thread. Each Get operation copies the editor's working lists of one module
/// back into `store`, in the order of `CopyModule` for the store; a failure leaves those before it
/// replaced. `GetVKSDUTActions` hands out the matrix, and `GetVKSDUTGlobActions` its global lists.
class IEditor {
  public:
    virtual ~IEditor() = default;
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
    /// Takes the lists of its module out of `lists`, as after an edit: shows them and hands them on
    /// to the engine's store. A step back to earlier lists is made so.
    virtual void TakeLists(const ModuleLists& lists) = 0;
    /// Copies the lists of `moduleKind` out of `engine`, which the editor keeps, and builds tree
    /// and list again. After an error the editor shows nothing.
    virtual void LoadEditor(aceModul moduleKind, const std::shared_ptr<EngineState>& engine) = 0;
    /// Selects subrange `number`, from 0; a negative number selects none.
    virtual void SetSubrange(std::int32_t number) = 0;
    /// Ends the form and drops all that it refers to.
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

class ThreadContext;

/// What failed on a device: the action's record, or the device's name for `atTrackFreq`.
using DeviceErrorSubject = std::variant<aceSetDevice, aceRemote, String>;

/// Tells the operator on a new form that an action failed on a device, and asks how to go on;
/// messages run meanwhile. `ignoreAll` goes in and out: only the answer "ignore all" sets it, every
/// other one leaves it. True when the operator asks to stop the test. Errors of the host's language
/// data and screen come out. The caller asks first whether the action is to fail in silence.
Boolean ShowDeviceError(ThreadContext& context, p_ActionTypes actionType, Boolean& ignoreAll,
                        const DeviceErrorSubject& subject, std::int32_t errorNumber,
                        const String& errorText);

/// Makes the comment form of the thread.
std::shared_ptr<ICommentForm> MakeCommentForm(ThreadContext& context);
/// Makes a serial form with a port of its own.
std::shared_ptr<IComPortForm> MakeComPortForm(ThreadContext& context);

}  // namespace ace
