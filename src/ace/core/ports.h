/// What the core needs of parts that are built on top of it: the editor and the run-time forms. The
/// folder that owns a form defines both the form and the routine that makes it.
#pragma once

#include <memory>

#include <ace/core/engine_state.h>
#include <ace/host/serial_port.h>

namespace ace {

/// The one editor of a thread. The Get operations hand out its working copies of the module's lists
/// into the arguments, in their order; a failure leaves those before it replaced.
class IEditor {
  public:
    virtual ~IEditor() = default;
    virtual void GetMainActions(std::int32_t& count, DynArray<p_Subrange>& subranges,
                                p_Subrange& test) = 0;
    virtual void GetMoniActions(std::int32_t& count, DynArray<p_Subrange>& channels,
                                p_Subrange& eut, p_Subrange& loop) = 0;
    virtual void GetEMSAutoActionsGeneral(p_Subrange& general) = 0;
    virtual void GetEMSAutoActions(std::int32_t& count, DynArray<p_Subrange>& steps) = 0;
    virtual void GetEMIAutoActions(std::int32_t& count, DynArray<p_Subrange>& steps,
                                   p_Subrange& test) = 0;
    virtual void GetTSActions(std::int32_t& count, DynArray<p_Subrange>& tests,
                              p_Subrange& test) = 0;
    virtual void GetAziChartActions(p_Subrange& chart) = 0;
    virtual void GetVKSActions(std::int32_t& testCount, DynArray<p_Subrange>& tests,
                               p_Subrange& general, std::int32_t& stepCount,
                               DynArray<p_Subrange>& steps) = 0;
    /// Steps and their count, ids, the tables of frequencies, bandwidths and powers with their
    /// counts, the template number and the three influence flags, all into `matrix`.
    virtual void GetVKSDUTActions(EngineState& matrix) = 0;
    virtual void GetVKSDUTGlobActions(p_Subrange& global) = 0;
    /// Copies the lists of `modul` out of `engine`, which the editor keeps, and builds tree and
    /// list again. After an error the editor shows nothing.
    virtual void LoadEditor(aceModul modul, const std::shared_ptr<EngineState>& engine) = 0;
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
