#include "workbench/transports/traffic_log.h"

#include <gmock/gmock.h>
#include <sstream>

namespace ace::workbench {
namespace {

constexpr const char* Header =
    "time\tmoment\tfrequency/Hz\ttransport\taddress\tbytes\twhat happened\n";

/// 2009-02-13T23:31:30Z is 1234567890 seconds after the epoch.
std::chrono::system_clock::time_point SomeTime() {
    return std::chrono::system_clock::time_point(std::chrono::milliseconds(1'234'567'890'007));
}

TEST(TrafficLog, ALineTellsTimeMomentFrequencyTransportAddressBytesAndWhatHappened) {
    std::ostringstream out;
    TrafficLog log(
        out,
        [] {
            return TrafficPlace{L"frequency changes", 150e6};
        },
        SomeTime);
    log.End(log.Begin(L"TCP/IP", L"127.0.0.1:5025"), "*RST\n", L"sent 5 bytes");
    EXPECT_EQ(out.str(), std::string(Header) +
                             "2009-02-13T23:31:30.007Z\tfrequency changes\t150000000\tTCP/IP\t"
                             "127.0.0.1:5025\t\"*RST\\n\"\tsent 5 bytes\n");
}

TEST(TrafficLog, AMomentWithoutAFrequencyAndNoMomentAtAllLeaveTheirFieldsEmpty) {
    std::ostringstream out;
    TrafficLog log(out, {}, SomeTime);
    log.End(log.Begin(L"GPIB", L"0:5"), "", L"sent 0 bytes");
    EXPECT_EQ(out.str(), std::string(Header) +
                             "2009-02-13T23:31:30.007Z\t\t\tGPIB\t0:5\t\"\"\tsent 0 bytes\n");
}

TEST(TrafficLog, AFieldNeverBreaksTheLine) {
    std::ostringstream out;
    TrafficLog log(out, {}, SomeTime);
    log.End(log.Begin(L"a\tb", L"c\nd"), "\t\r\n\"", L"failed: e\r\nf\x9Bg");
    EXPECT_EQ(out.str(),
              std::string(Header) +
                  "2009-02-13T23:31:30.007Z\t\t\ta b\tc d\t\"\\t\\r\\n\\\"\"\tfailed: e  f g\n");
}

TEST(TrafficLog, TimeAndPlaceAreThoseOfTheBeginning) {
    std::ostringstream out;
    TrafficPlace place{L"start", 0.0};
    auto time = SomeTime();
    TrafficLog log(
        out, [&] { return place; }, [&] { return time; });
    const TrafficLog::Entry entry = log.Begin(L"RS232", L"COM1");
    place = {L"stop", 1.0};
    time += std::chrono::hours(1);
    log.End(entry, "A", L"sent 1 bytes");
    EXPECT_EQ(out.str(),
              std::string(Header) +
                  "2009-02-13T23:31:30.007Z\tstart\t\tRS232\tCOM1\t\"A\"\tsent 1 bytes\n");
}

TEST(TrafficLog, WhoLooksOnIsToldEachLineAlsoWithoutAFile) {
    std::vector<String> told;
    TrafficLog log;
    log.remark = L" (simulated)";
    log.onLine = [&](const TrafficLine& line) {
        told.push_back(String(line.transport) + L"|" + String(line.address) + L"|" +
                       String(line.bytes.begin(), line.bytes.end()) + L"|" + String(line.what));
    };
    log.End(log.Begin(L"GPIB", L"0:5"), "A\n", L"sent 2 bytes");
    EXPECT_THAT(told, testing::ElementsAre(L"GPIB|0:5|A\n|sent 2 bytes (simulated)"));
    EXPECT_TRUE(log.IsGood());
}

TEST(TrafficLog, TheRemarkStandsBehindEveryLine) {
    std::ostringstream out;
    TrafficLog log(out, {}, SomeTime);
    log.remark = L" (simulated)";
    log.End(log.Begin(L"GPIB", L"0:5"), "A", L"sent 1 bytes");
    EXPECT_EQ(out.str(),
              std::string(Header) +
                  "2009-02-13T23:31:30.007Z\t\t\tGPIB\t0:5\t\"A\"\tsent 1 bytes (simulated)\n");
}

TEST(TrafficLog, AStreamThatFailsIsSeen) {
    std::ostringstream out;
    TrafficLog log(out);
    EXPECT_TRUE(log.IsGood());
    out.setstate(std::ios::badbit);
    log.End(log.Begin(L"GPIB", L"0:5"), "A", L"sent 1 bytes");
    EXPECT_FALSE(log.IsGood());
}

TEST(TrafficLog, TheTimeIsThatOfTheMachine) {
    std::ostringstream out;
    TrafficLog log(out);
    log.End(log.Begin(L"GPIB", L"0:5"), "A", L"sent 1 bytes");
    EXPECT_THAT(out.str().substr(std::string(Header).size()),
                testing::MatchesRegex("20[0-9]{2}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}"
                                      "\\.[0-9]{3}Z\t.*\n"));
}

}  // namespace
}  // namespace ace::workbench
