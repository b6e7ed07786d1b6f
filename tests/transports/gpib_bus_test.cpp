#include "workbench/transports/gpib_bus.h"

#include <dlfcn.h>

#include "transports/failure.h"
#include "transports/fake_gpib.h"
#include "workbench/transports/transport_errors.h"

namespace ace::workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A bus over the stand-in library, whose memory is fresh for each test.
class GpibBusTest : public ::testing::TestWithParam<const char*> {
  protected:
    GpibBusTest() : x_library(::dlopen(GetParam(), RTLD_NOW | RTLD_LOCAL)) {
        fake = static_cast<FakeGpib*>(::dlsym(x_library, "fakeGpib"));
        *fake = FakeGpib{5, -1, false, "", "", 0};
    }
    ~GpibBusTest() override { ::dlclose(x_library); }

    /// Opens as the engine does.
    std::int16_t Open(std::int16_t board, std::int16_t address) {
        return bus.OpenDevice(board, address, 0, 11, 1, 0);
    }
    std::string Calls() const { return fake->calls; }

    std::vector<std::string> remarks;
    GpibBus bus{GetParam(), [this](const String& line) { remarks.push_back(Narrow(line)); }};
    FakeGpib* fake = nullptr;

  private:
    void* x_library;
};

TEST_P(GpibBusTest, OpensWritesAndClosesByTheCallsOfTheInterface) {
    const std::int16_t handle = Open(12, 5);
    EXPECT_EQ(handle, 5);
    bus.WriteString(handle, L"FREQ 1,2\n");
    bus.CloseDevice(handle, 0);
    EXPECT_EQ(Calls(), "ibdev 12 5 0 11 1 0\nibwrt 5 9\nibonl 5 0\n");
    EXPECT_EQ(std::string(fake->written, 9), "FREQ 1,2\n");
    EXPECT_THAT(remarks, IsEmpty());
}

TEST_P(GpibBusTest, BytesArriveExactlyWithEachTerminator) {
    const std::int16_t handle = Open(0, 5);
    for (const std::string terminator : {"\n", "\r", "\r\n", ""}) {
        const std::string command = std::string("A,\xB5;") + terminator;
        String text;
        for (const char c : command) {
            text += static_cast<wchar_t>(static_cast<unsigned char>(c));
        }
        bus.WriteString(handle, text);
        EXPECT_EQ(std::string(fake->written, static_cast<std::size_t>(fake->writtenCount)),
                  command);
    }
}

TEST_P(GpibBusTest, ADeviceThatCannotBeOpenedIsMinusOneAndTheCauseIsTold) {
    fake->nextError = 7;
    EXPECT_EQ(Open(3, 21), -1);
    EXPECT_THAT(remarks, ElementsAre("GPIB 3:21: can't open: ENEB (error 7): there is no such "
                                     "board"));
}

TEST_P(GpibBusTest, AHandleBeyond16BitsIsGivenBack) {
    fake->nextDevice = 32768;
    EXPECT_EQ(Open(0, 5), -1);
    EXPECT_EQ(Calls(), "ibdev 0 5 0 11 1 0\nibonl 32768 0\n");
    EXPECT_THAT(remarks, ElementsAre(HasSubstr("32768 does not fit into 16 bits")));
    fake->nextDevice = 32767;
    EXPECT_EQ(Open(0, 5), 32767);
}

TEST_P(GpibBusTest, AWriteThatFailsIsAnErrorWithPlaceAndCause) {
    const std::int16_t handle = Open(0, 5);
    fake->nextError = 2;
    EXPECT_EQ(Failure(TransportErrors::CannotSend, [&] { bus.WriteString(handle, L"A"); }),
              "GPIB 0:5: can't send: ENOL (error 2): no listener on the bus");
    bus.WriteString(handle, L"B");
    EXPECT_EQ(fake->written[0], 'B');
}

TEST_P(GpibBusTest, ATimeOutIsTold) {
    const std::int16_t handle = Open(0, 5);
    fake->nextError = 6;
    fake->hasTimedOut = true;
    EXPECT_EQ(
        Failure(TransportErrors::CannotSend, [&] { bus.WriteString(handle, L"A"); }),
        "GPIB 0:5: can't send: EABO (error 6): the transfer was aborted, the time-out passed");
}

TEST_P(GpibBusTest, AnErrorCodeWithoutANameIsToldByNumber) {
    const std::int16_t handle = Open(0, 5);
    fake->nextError = 77;
    EXPECT_THAT(Failure(TransportErrors::CannotSend, [&] { bus.WriteString(handle, L"A"); }),
                HasSubstr("can't send: error 77"));
}

TEST_P(GpibBusTest, AHandleThatIsNotOpenIsAnErrorToWriteAndNoCallToClose) {
    EXPECT_EQ(Failure(TransportErrors::CannotSend, [&] { bus.WriteString(5, L"A"); }),
              "GPIB: handle 5 is no open device");
    bus.CloseDevice(5, 0);
    EXPECT_EQ(Calls(), "");
}

TEST_P(GpibBusTest, ACharacterWithoutAByteSendsNothing) {
    const std::int16_t handle = Open(0, 5);
    EXPECT_THAT(Failure(TransportErrors::CannotSend, [&] { bus.WriteString(handle, L"\x03A9"); }),
                HasSubstr("nothing was sent"));
    EXPECT_EQ(Calls(), "ibdev 0 5 0 11 1 0\n");
}

INSTANTIATE_TEST_SUITE_P(StatusByFunctionsAndByVariables, GpibBusTest,
                         ::testing::Values(FAKE_GPIB, FAKE_GPIB_WITH_VARIABLES));

std::int16_t OpenAny(GpibBus& bus) {
    return bus.OpenDevice(0, 5, 0, 11, 1, 0);
}

TEST(GpibBus, WithoutALibraryOpeningSaysSo) {
    GpibBus bus("");
    EXPECT_EQ(Failure(TransportErrors::CannotOpen, [&] { OpenAny(bus); }),
              "GPIB: there is no driver library; the configuration names one by [Gpib] "
              "Library=<file>");
}

TEST(GpibBus, ALibraryThatCannotBeLoadedIsNamed) {
    GpibBus bus("/no/such/libgpib.so");
    EXPECT_THAT(Failure(TransportErrors::CannotOpen, [&] { OpenAny(bus); }),
                HasSubstr("GPIB: the library can't be loaded: /no/such/libgpib.so"));
}

TEST(GpibBus, ALibraryWithoutANameOfTheInterfaceIsRefused) {
    GpibBus bus(FAKE_GPIB_HALF);
    EXPECT_EQ(Failure(TransportErrors::CannotOpen, [&] { OpenAny(bus); }),
              "GPIB: the library " FAKE_GPIB_HALF " does not export ibwrt");
}

}  // namespace
}  // namespace ace::workbench
