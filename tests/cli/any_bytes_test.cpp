/// Every parser of the workbench answers with its own error, which names file and line, whatever it
/// is given: files are written by people, and cut off by full disks.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <regex>

#include "sim/sim_host.h"
#include "support/refusal.h"
#include "support/sample.h"
#include "workbench/devices/device_file.h"
#include "workbench/devices/device_lines.h"
#include "workbench/devices/fault_rules.h"
#include "workbench/files/file_errors.h"
#include "workbench/session/answers.h"
#include "workbench/session/set_up.h"
#include "workbench/transports/command_line.h"
#include "workbench/transports/macro_inputs.h"
#include "workbench/transports/transport_errors.h"
#include "workbench/transports/transport_settings.h"

namespace ace::workbench {
namespace {

const String Path = L"f.ini";

/// How a parser may refuse.
enum class Refusal {
    WithPlace,  ///< `CommandError`: file and line; a wrong use has none
    ByNumber,   ///< `RunTimeError` of a number of its own
    Never,
};

struct ParserRow {
    const char* name;
    void (*parse)(const String& text);
    Refusal refusal;
    std::int32_t number;  ///< of `ByNumber`
    std::vector<const wchar_t*> samples;
};

/// What is read as a settings file. A text that is taken for one of 16 bits is refused whole.
SettingsDocument DocumentOf(const String& text) {
    return SettingsDocument(ToUtf8(text));
}

const ParserRow Parsers[] = {
    {"device file",
     [](const String& text) {
         sim::SimHost host;
         ReadDevices(DocumentOf(text), Path, host);
     },
     Refusal::WithPlace,
     0,
     {L"[Devices]\nAmp A=Amplifiers\nEUT=Monitoring\nGen=Generators\n[EUT]\n"
      L"Fail1=102, 433MHz..435MHz, 3 s, 1\n[Gen]\nBind=TCP 127.0.0.1:5025\n"
      L"Terminator=CRLF\nOnFrequency=FREQ %1\n[Tables]\nLoss=80MHz:-30, 1GHz:-28\n"}},
    {"script of failures",
     [](const String& text) { FaultRules(text, Path); },
     Refusal::WithPlace,
     0,
     {L"GPIB 0:13 fails at the 40th write", L"COM3 fails from the 2nd opening on, error 75",
      L"TCP 1.2.3.4:5 fails from the 3rd write on", L"device A B fails at every reading",
      L"program *x fails from the 2nd start on", L"macro y* fails at the 1st run, error -3"}},
    {"answers",
     [](const String& text) { Answers(text, Path); },
     Refusal::WithPlace,
     0,
     {L"start of test | question | Power* | Yes\n# more\n",
      L"* | notification | *door* | always OK", L"* | failure | *GPIB | a* | Ignore all"}},
    {"configuration",
     [](const String& text) { ReadTransportSettings(DocumentOf(text), Path); },
     Refusal::WithPlace,
     0,
     {L"[Tcp]\nConnectTimeoutMs=5000\nWriteTimeoutMs=1\n[Serial]\nWriteTimeoutMs=250\n"
      L"[SerialPorts]\nCOM3=/dev/ttyUSB0\n; the rack\n[Sound]\nPlayer=play -q\n"}},
    {"set-up",
     [](const String& text) { ReadSetUp(DocumentOf(text), Path, {}); },
     Refusal::WithPlace,
     0,
     {L"[Workbench]\nModule=0\nSubRanges=1\nTestKind=0\n[Workbench.Subrange1]\n"
      L"StartHz=80000000\nStopHz=90000000\nStepPercent=1.0\nDwellMs=2000\n",
      L"[Workbench]\nModule=1\nSubRanges=1\n[Workbench.Channel1]\nName=a\nTrigger=2,5\n"
      L"NoGo=3\nDevice=EUT\nNoGoAbove=2\n",
      L"[Workbench]\nModule=8\nSubRanges=0\n[Workbench.DUT]\nFreq0=2402000000\nFreqName0=l\n"
      L"BandwidthName0=1 MHz\nPowerName0=0\nInfluencedByFreq=1\n[Workbench.Placeholders]\n"
      L"#A#=1\n"}},
    {"macro inputs",
     [](const String& text) { ParseMacroInputs(text); },
     Refusal::ByNumber,
     TransportErrors::BadConfiguration,
     {L"# inputs\nvalue level in dBm\ntable loss\n"}},
    {"command line",
     [](const String& text) { SplitCommandLine(text); },
     Refusal::ByNumber,
     TransportErrors::CannotStart,
     {L"program \"one argument\" 'an other' a\\ b \\\" c"}},
    {"sweep",
     [](const String& text) { ParseSweep(text); },
     Refusal::ByNumber,
     5,
     {L"80MHz..1GHz/1%", L" 9 khz .. 150 KHZ / 0.5 % "}},
    {"curve",
     [](const String& text) { ReadCurve(text); },
     Refusal::Never,
     0,
     {L"80MHz:-1.5, 1GHz:-2"}},
    {"failure of an equipment",
     [](const String& text) { ReadEutFailure(text); },
     Refusal::Never,
     0,
     {L"102, 433MHz..435MHz, 3 s, 1"}},
};

/// What is wrong with the way in which the text was refused; empty when nothing is.
std::string FaultOf(const ParserRow& row, const String& text) {
    try {
        row.parse(text);
        return {};
    } catch (const CommandError& error) {
        // What is missing altogether has no line.
        static const std::regex place(
            R"(^f\.ini(:[0-9]+: |: there is no device in it: |: \[[^\]]*\]: the matrix needs ))");
        const bool isPlaced = std::regex_search(ToUtf8(error.text), place);
        const bool isFine =
            error.outcome == Outcome::WrongUse || (error.outcome == Outcome::BadFile && isPlaced);
        return row.refusal == Refusal::WithPlace && isFine ? "" : "refused: " + ToUtf8(error.text);
    } catch (const RunTimeError& error) {
        const bool isWide =
            row.refusal == Refusal::WithPlace && error.Number() == FileErrors::CannotRead;
        const bool isOwn = row.refusal == Refusal::ByNumber && error.Number() == row.number;
        return isWide || isOwn ? "" : "raised: " + ToUtf8(error.Description());
    } catch (const std::exception& error) {
        return std::string("ended with ") + error.what();
    }
}

class AnyBytes : public testing::TestWithParam<ParserRow> {
  protected:
    std::size_t Below(std::size_t limit) {
        return std::uniform_int_distribution<std::size_t>(0, limit - 1)(x_random);
    }
    /// Cuts out, doubles or changes a few characters.
    String Mutated(String text) {
        static const String Letters =
            String(1, L'\0') + L"\t\n\r !\"#%'*,-./0189:;=?AEZ[\\]|ez\x7F\x80\xE4\x20AC";
        for (std::size_t changes = 1 + Below(4); changes > 0 && !text.empty(); --changes) {
            const std::size_t at = Below(text.size());
            const std::size_t size = 1 + Below(8);
            switch (Below(4)) {
                case 0:
                    text.erase(at, size);
                    break;
                case 1:
                    text.insert(Below(text.size()), text.substr(at, size));
                    break;
                case 2:
                    text.insert(at, 1, Letters[Below(Letters.size())]);
                    break;
                default:
                    text[at] = Letters[Below(Letters.size())];
                    break;
            }
        }
        return text;
    }
    void Expect(const String& text) { EXPECT_EQ(FaultOf(GetParam(), text), "") << ToUtf8(text); }

  private:
    std::mt19937 x_random{test::FirstSeed()};
};

TEST_P(AnyBytes, EveryBeginningAndEndOfAGoodTextIsTakenOrRefused) {
    for (String sample : GetParam().samples) {
        for (std::size_t size = 0; size <= sample.size(); ++size) {
            Expect(sample.substr(0, size));
            Expect(sample.substr(size));
        }
    }
}

TEST_P(AnyBytes, EveryTextThatIsNearlyGoodIsTakenOrRefused) {
    for (String sample : GetParam().samples) {
        for (int round = 0; round < (test::WantsAll() ? 50000 : 2000); ++round) {
            Expect(Mutated(sample));
        }
    }
}

/// Words that overlap: each of them where two were expected.
TEST_P(AnyBytes, WordsLeftOutOneByOneAreTakenOrRefused) {
    for (String sample : GetParam().samples) {
        for (std::size_t from = 0; from < sample.size(); ++from) {
            for (std::size_t size = 1; size <= 12; ++size) {
                Expect(String(sample).erase(from, size));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Parsers, AnyBytes, testing::ValuesIn(Parsers), [](const auto& one) {
    std::string name;
    for (const char c : std::string(one.param.name)) {
        if (c != ' ' && c != '-') {
            name += c;
        }
    }
    return name;
});

}  // namespace
}  // namespace ace::workbench
