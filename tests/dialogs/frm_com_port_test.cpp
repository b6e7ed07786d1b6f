#include <ace/dialogs/frm_com_port.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

using ::testing::ElementsAre;

class FrmComPort : public HostTest {};

TEST_F(FrmComPort, ItCarriesThePortOfTheHost) {
    frmComPort form(context);
    form.ComPort().CommPort(3);
    EXPECT_EQ(form.ComPort().CommPort(), 3);
    EXPECT_THAT(TakeEffects(), ElementsAre(L"SerialPort.CommPort(3)"));
}

TEST_F(FrmComPort, ItsEndClosesAnOpenPort) {
    {
        frmComPort form(context);
        form.ComPort().PortOpen(true);
        host->journal.Clear();
    }
    EXPECT_THAT(host->journal.Lines(),
                ElementsAre(L"SerialPort.PortOpen()", L"SerialPort.PortOpen(false)"));
    EXPECT_FALSE(host->serialPortOpen);
}

TEST_F(FrmComPort, ItsEndLeavesAClosedPortAlone) {
    { const frmComPort form(context); }
    EXPECT_THAT(host->journal.Lines(),
                ElementsAre(L"Factory.MakeSerialPort()", L"SerialPort.PortOpen()"));
}

TEST_F(FrmComPort, AnErrorOfTheClosingIsIgnored) {
    {
        frmComPort form(context);
        form.ComPort().PortOpen(true);
        host->journal.Clear();
        host->faults.FailOperation(L"SerialPort.PortOpen", 2, 8020);
    }
    EXPECT_THAT(host->journal.Lines(),
                ElementsAre(L"SerialPort.PortOpen()", L"SerialPort.PortOpen(false) -> error 8020"));
}

TEST_F(FrmComPort, APortThatCannotSayWhetherItIsOpenIsLeftAlone) {
    host->faults.FailOperation(L"SerialPort.PortOpen", 1, 8018);
    { const frmComPort form(context); }
    EXPECT_THAT(host->journal.Lines(),
                ElementsAre(L"Factory.MakeSerialPort()", L"SerialPort.PortOpen() -> error 8018"));
}

TEST_F(FrmComPort, AHostThatGivesNoPortIsError91) {
    struct Portless : IHostFactory {
        std::shared_ptr<ISerialPort> MakeSerialPort() override { return nullptr; }
    };
    ThreadContext portless(std::make_shared<Portless>());
    EXPECT_EQ(ErrorOf([&] { frmComPort form(portless); }), 91);
}

}  // namespace
}  // namespace ace::test
