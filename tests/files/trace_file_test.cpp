#include "workbench/files/trace_file.h"

#include <cerrno>

#include "support/file_fixture.h"
#include "workbench/files/file_errors.h"

namespace ace::workbench {
namespace {

class TraceFileTest : public FolderTest {
  protected:
    static std::string Noon() { return "2025-03-14 12:00:00.000"; }
    std::string path = Path("trace.log");
};

TEST_F(TraceFileTest, LinesStandInColumns) {
    TraceFile trace(path, Noon);
    trace.Make();
    trace.WriteLine(L"start", L"ZOLTA_ActionsEngine", L"aceActionsEngine (Code)", L"NewFrequency",
                    L"Freq = 80000000", L"1");
    trace.WriteLine(L"end", L"", L"", L"NewFrequency", L"", L"1");
    EXPECT_EQ(Read("trace.log"),
              "2025-03-14 12:00:00.000  start  1       NewFrequency                  "
              "aceActionsEngine (Code)   ZOLTA_ActionsEngine  Freq = 80000000\n"
              "2025-03-14 12:00:00.000  end    1       NewFrequency\n");
}

TEST_F(TraceFileTest, AnErrorIsWrittenWithNumberLineSourceAndDescriptionAndIsRaised) {
    TraceFile trace(path, Noon);
    trace.Make();
    EXPECT_EQ(trace.ReportError(RunTimeError(13, L"type mismatch", L"Host"), 7, 42), 0);
    EXPECT_EQ(Read("trace.log"),
              "2025-03-14 12:00:00.000  error  7       error 13                      "
              "line 42                   Host                 type mismatch\n");
}

TEST_F(TraceFileTest, ErrorsAreWrittenWithTracingOff) {
    TraceFile trace(path, Noon);
    trace.Make();
    EXPECT_TRUE(trace.IsEnabled());
    trace.Enable(false);
    EXPECT_FALSE(trace.IsEnabled());
    trace.ReportError(RunTimeError(5), 1, 1);
    EXPECT_NE(Read("trace.log").find("error 5"), std::string::npos);
}

TEST_F(TraceFileTest, ALongNameIsNotCut) {
    TraceFile trace(path, Noon);
    trace.Make();
    trace.WriteLine(L"start", L"c", L"m", String(40, L'p'), L"text", L"123456789");
    EXPECT_EQ(Read("trace.log"), "2025-03-14 12:00:00.000  start  123456789  " +
                                     std::string(40, 'p') + "  m" + std::string(23, ' ') + "  c" +
                                     std::string(18, ' ') + "  text\n");
}

TEST_F(TraceFileTest, TextsAreUtf8AndStayOnOneLine) {
    TraceFile trace(path, Noon);
    trace.Make();
    trace.WriteLine(L"m", L"", L"", L"", L"\xE4\x20AC a\r\nb\t\x01\x7F\x80\x9F C:\\new", L"");
    EXPECT_EQ(Read("trace.log").substr(25),
              "m" + std::string(4 + 8 + 30 + 26 + 21 + 2, ' ') +
                  "\xC3\xA4\xE2\x82\xAC a\\r\\nb\\t\\x01\\x7F\\x80\\x9F C:\\new\n");
}

TEST_F(TraceFileTest, AValueThatIsNoCharacterIsShownAsAQuestionMark) {
    TraceFile trace(path, Noon);
    trace.Make();
    trace.WriteLine(String(1, static_cast<wchar_t>(-1)), L"", L"", L"", L"", L"");
    EXPECT_EQ(Read("trace.log").substr(25), "?\n");
}

TEST_F(TraceFileTest, ANewLogReplacesTheOldOne) {
    Write("trace.log", "old");
    TraceFile trace(path, Noon);
    trace.Make();
    EXPECT_EQ(Read("trace.log"), "");
}

TEST_F(TraceFileTest, NothingIsTouchedBeforeTheLogIsMadeAndTheLinesSoFarAreKept) {
    Write("trace.log", "old");
    TraceFile trace(path, Noon);
    trace.WriteLine(L"start", L"", L"", L"A", L"", L"1");
    EXPECT_EQ(Read("trace.log"), "old");
    trace.Make();
    trace.WriteLine(L"end", L"", L"", L"A", L"", L"1");
    EXPECT_EQ(Read("trace.log"),
              "2025-03-14 12:00:00.000  start  1       A\n"
              "2025-03-14 12:00:00.000  end    1       A\n");
}

TEST_F(TraceFileTest, AFileThatCannotBeMadeIsAnErrorThatNamesIt) {
    const RunTimeError error = ErrorIn([&] { TraceFile(folder, Noon).Make(); });
    EXPECT_EQ(error.Number(), FileErrors::CannotSave);
    EXPECT_EQ(error.Description(),
              String(folder.begin(), folder.end()) + L": can't be made: Is a directory");
}

/// Writes at most two bytes at a time; the failures come first.
class SlowCalls : public FileCalls {
  public:
    std::vector<int> failures;
    ssize_t Write(int file, const char* bytes, std::size_t size) override {
        if (!failures.empty()) {
            errno = failures.front();
            failures.erase(failures.begin());
            return -1;
        }
        return FileCalls::Write(file, bytes, std::min<std::size_t>(size, 2));
    }
};

TEST_F(TraceFileTest, AFullDiskSilencesTheLogAndDisturbsNothing) {
    SlowCalls calls;
    calls.failures = {ENOSPC};
    TraceFile trace(path, Noon, calls);
    trace.Make();
    trace.WriteLine(L"start", L"", L"", L"A", L"", L"1");
    EXPECT_EQ(trace.Failure(), WidePath("trace.log") + L": No space left on device");
    EXPECT_FALSE(trace.IsEnabled());
    trace.WriteLine(L"end", L"", L"", L"A", L"", L"1");
    EXPECT_EQ(trace.ReportError(RunTimeError(5), 1, 1), 0);
    EXPECT_EQ(Read("trace.log"), "");
}

TEST_F(TraceFileTest, ShortAndInterruptedWritesAreFinished) {
    SlowCalls calls;
    calls.failures = {EINTR};
    TraceFile trace(path, Noon, calls);
    trace.Make();
    trace.WriteLine(L"end", L"", L"", L"Odd", L"", L"1");
    EXPECT_EQ(Read("trace.log"), "2025-03-14 12:00:00.000  end    1       Odd\n");
    EXPECT_EQ(trace.Failure(), L"");
}

TEST_F(TraceFileTest, TheLocalTimeHasMilliseconds) {
    std::string text = LocalTimeText();
    for (char& c : text) {
        c = c >= '0' && c <= '9' ? '0' : c;
    }
    EXPECT_EQ(text, "0000-00-00 00:00:00.000");
}

}  // namespace
}  // namespace ace::workbench
