#include <ace/core/operation.h>
#include <ace/dialogs/frm_com_port.h>

namespace ace {

frmComPort::frmComPort(ThreadContext& context)
    : x_comPort(Required(context.Factory().MakeSerialPort())) {}

frmComPort::~frmComPort() {
    ResumeNext next;
    next([&] {
        if (x_comPort->PortOpen()) {
            x_comPort->PortOpen(false);
        }
    });
}

std::shared_ptr<IComPortForm> MakeComPortForm(ThreadContext& context) {
    return std::make_shared<frmComPort>(context);
}

}  // namespace ace
