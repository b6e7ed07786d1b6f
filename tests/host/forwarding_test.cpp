#include <ace/host/forms.h>
#include <ace/host/forwarding.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

/// Does the same to a service and to one that hands on to it: the journal and what comes back in
/// `seen` have to be the same.
class ForwardingTest : public HostTest {
  protected:
    template <class Wrapper, class Service, class Acts>
    void Compare(std::shared_ptr<Service> (IHostFactory::*make)(), Acts acts) {
        const std::shared_ptr<Service> service = (host.get()->*make)();
        std::vector<String> lines[2];
        std::vector<String> answers[2];
        Wrapper wrapper(service);
        Service* const ways[] = {service.get(), &wrapper};
        for (std::size_t i = 0; i < 2; ++i) {
            seen.clear();
            host->journal.Clear();
            acts(*ways[i]);
            lines[i] = host->journal.Lines();
            answers[i] = seen;
        }
        EXPECT_EQ(lines[0], lines[1]);
        EXPECT_EQ(answers[0], answers[1]);
        EXPECT_FALSE(lines[0].empty());
    }
    template <class Answer>
    void See(const Answer& answer) {
        seen.push_back(sim::ArgumentText(sim::AsArgument(answer)));
    }

    std::vector<String> seen;
};

TEST_F(ForwardingTest, TheDeviceListHandsEverythingOn) {
    host->bench.Add<sim::SimReceiver>(*host, L"Rx");
    Compare<ForwardingDeviceList>(&IHostFactory::MakeDeviceList, [&](IDeviceList& list) {
        std::int32_t handle = 7;
        list.GetDeviceListHost().PostEvent(L"b", 4, L"c");
        list.PostEvent(L"a", 3, L"b");
        list.OpenSocket(L"h", 5, 0, L"TCP", handle);
        list.FindSocket(L"gone", 5, L"", handle);
        See(list.SendSocket(handle, L"x"));
        See(list.SocketIsOpen(handle) && handle > 0);
        See(list.CloseSocket(handle));
        See(list.ClassName(6));
        See(list.GetDevice(L"Rx") != nullptr);
        See(static_cast<std::int32_t>(list.DevicesOfClass(L"Receivers").size()));
        host->instruments.nextSocket = 1;
    });
}

TEST_F(ForwardingTest, BusSerialPortAndMacroHandEverythingOn) {
    Compare<ForwardingGpibDriver>(&IHostFactory::MakeGpibDriver, [&](IGpibDriver& bus) {
        host->instruments.nextGpibHandle = 3;
        See(bus.OpenDevice(1, 20, 0, 13, 1, 0));
        bus.WriteString(3, L"*RST");
        See(bus.CloseDevice(3, 0));
    });
    Compare<ForwardingSerialPort>(&IHostFactory::MakeSerialPort, [&](ISerialPort& port) {
        port.CommPort(4);
        See(port.CommPort());
        port.PortOpen(true);
        See(port.PortOpen());
        port.Output(L"x");
    });
    host->macros[L"m"].parameters = {3, 0};
    Compare<ForwardingApiMacro>(&IHostFactory::MakeApiMacro, [&](IApiMacro& macro) {
        Value value;
        String text;
        std::int32_t index = 1;
        See(macro.Load(L"m", {}, {}, value));
        See(macro.ParameterCount());
        See(macro.ParameterInfo(index).kind);
        See(macro.Execute(text, text, value));
        macro.WaitFinished();
        See(macro.GetResult());
        macro.Abort();
    });
}

TEST_F(ForwardingTest, ThePlatformHandsEverythingOn) {
    host->programs.running = {77.0};
    host->decimalSeparator = L',';
    host->brokenSounds = {L"b.wav"};
    Compare<ForwardingPlatform>(&IHostFactory::MakePlatform, [&](IPlatform& platform) {
        platform.Yield();
        See(platform.sndPlaySoundA(L"b.wav", 19));
        platform.Beep();
        platform.ActivateProgram(77.0);
        host->programs.nextIdentifier = 5.0;
        See(platform.StartProgram(L"run"));
        See(platform.ThreadId());
        See(platform.DecimalSeparator() == L',');
        See(static_cast<double>(platform.SecondsSinceMidnight()));
    });
}

TEST_F(ForwardingTest, TheSystemServicesHandEverythingOn) {
    host->testState = 14;
    host->usableFiles = {L"p"};
    Compare<ForwardingSystemServices>(
        &IHostFactory::MakeSystemServices, [&](ISystemServices& system) {
            std::int32_t style = 1;
            bool flag = false;
            See(system.OpenSettingsFile(20, 1, L"f", 0, 0) != nullptr);
            See(system.FileIsUsable(L"p", true, false));
            system.ShowTimedMessage(L"t", style, L"u", 10);
            See(system.GetCurrentTest() != nullptr);
            See(system.CurrentTest() != nullptr);
            See(system.GetTable(1, 2, L"gone", 3, flag) != nullptr);
            See(system.GetGlobalSettings() != nullptr);
            system.SetProgressText(L"p");
            system.WriteMacroSync(1, 2, L"STARTED");
            See(system.ReadMacroSync(2));
        });
}

TEST_F(ForwardingTest, ScreenBoxesAndMenusHandEverythingOn) {
    Compare<ForwardingFormHost>(&IHostFactory::MakeFormHost, [&](IFormHost& screen) {
        Form form(L"Sample", 0, 10.0F, 10.0F);
        host->user.Expect(L"Sample", sim::CloseFrame());
        form.ShowModal(screen);
        See(static_cast<double>(screen.TextHeight(L"a\nb", 9.0F)));
    });
    Compare<ForwardingUserDialogs>(&IHostFactory::MakeUserDialogs, [&](IUserDialogs& boxes) {
        host->user.ExpectQuestion(true);
        host->user.ExpectFile(L"f");
        host->user.ExpectMenu(L"m");
        See(boxes.ShowMessageBox(L"a", IUserDialogs::YesNo, L"t"));
        See(boxes.OpenFile({L"a", L"b", L"c"}).value_or(L"none"));
        See(static_cast<std::int32_t>(boxes.ShowPopupMenu({{1, L"l"}, {2, L"m"}}).value_or(9)));
        boxes.SetBusyPointer(true);
    });
    Compare<ForwardingDeviceSettingsStore>(&IHostFactory::MakeDeviceSettingsStore,
                                           [&](IDeviceSettingsStore& store) {
                                               String text = L"before";
                                               host->user.ExpectSettings(L"after");
                                               store.SetDevice(L"d", 1);
                                               store.StoreIn(nullptr, L"s");
                                               store.EditSettings(text);
                                               See(text);
                                           });
}

TEST_F(ForwardingTest, TextsStatusAndTraceHandEverythingOn) {
    Compare<ForwardingLanguage>(&IHostFactory::MakeLanguage, [&](ILanguage& language) {
        Form form(L"Sample", 8, 10.0F, 10.0F);
        See(language.Text(7));
        language.TranslateForm(form);
        See(form.title);
    });
    Compare<ForwardingStatusDisplay>(&IHostFactory::MakeStatusDisplay, [](IStatusDisplay& status) {
        status.ShowStatus(L"s", true, false);
    });
    host->tracing = true;
    Compare<ForwardingTraceLog>(&IHostFactory::MakeTraceLog, [&](ITraceLog& log) {
        See(log.IsEnabled());
        host->reportAnswers = {5};
        See(log.ReportError(RunTimeError(6, L"d"), 1, 2));
        log.WriteLine(L"a", L"b", L"c", L"d", L"e", L"f");
    });
}

TEST_F(ForwardingTest, TheUtilitiesHandEverythingOn) {
    Compare<ForwardingUtilities>(&IHostFactory::MakeUtilities, [&](IUtilities& utilities) {
        const std::vector<Value> further = {Value(2.0), Value(3.0)};
        See(utilities.IsEqual(1.0, 1.0));
        See(utilities.IsSameValue(1.0, 2.0));
        See(utilities.Max(Value(1.0), further));
        See(utilities.InRange(Value(1.0), Value(2.0), Value(3.0)));
        See(utilities.Wait(5.0F));
    });
}

}  // namespace
}  // namespace ace::test
