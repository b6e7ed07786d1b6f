#include "workbench/files/document_cache.h"

#include <chrono>
#include <thread>

#include "support/file_fixture.h"
#include "workbench/files/disk_settings_file.h"

namespace ace::workbench {
namespace {

/// Counts what is read. Its clock goes ahead, so that every file is old.
class WatchingCalls : public FileCalls {
  public:
    int reads = 0;
    std::int32_t aheadSeconds = 3600;
    std::function<void()> whileReading;
    std::optional<struct stat> frozen;  ///< what every file looks like

    ssize_t Read(int file, char* buffer, std::size_t size) override {
        const ssize_t count = FileCalls::Read(file, buffer, size);
        reads += count > 0 ? 1 : 0;
        if (whileReading) {
            std::exchange(whileReading, {})();
        }
        return count;
    }
    int Fstat(int file, struct stat& result) override {
        const int answer = FileCalls::Fstat(file, result);
        result = frozen.value_or(result);
        return answer;
    }
    std::timespec Now() override {
        std::timespec now = FileCalls::Now();
        now.tv_sec += aheadSeconds;
        return now;
    }
};

class DocumentCacheTest : public FolderTest {
  protected:
    /// Later than any tick of the clock by which files are stamped.
    void WriteLater(const std::string& name, const std::string& bytes) const {
        std::this_thread::sleep_for(std::chrono::milliseconds(30));
        Write(name, bytes);
    }
    /// The value of the only key, in a file that is opened for it.
    String ValueIn(const std::string& name) {
        return files.Open(WidePath(name))->GetString(L"A", L"x", L"none");
    }

    WatchingCalls calls;
    SettingsFiles files{calls};
};

TEST_F(DocumentCacheTest, AFileThatDidNotChangeIsReadOnce) {
    Write("a.ini", "[A]\r\nx=1\r\n");
    EXPECT_EQ(ValueIn("a.ini"), L"1");
    EXPECT_EQ(ValueIn("a.ini"), L"1");
    EXPECT_EQ(calls.reads, 1);
}

TEST_F(DocumentCacheTest, AFileThatAnotherProgramChangedIsReadAnew) {
    Write("a.ini", "[A]\r\nx=1\r\n");
    EXPECT_EQ(ValueIn("a.ini"), L"1");
    WriteLater("a.ini", "[A]\r\nx=2\r\n");
    EXPECT_EQ(ValueIn("a.ini"), L"2");
}

TEST_F(DocumentCacheTest, AFileThatAnotherObjectSavedIsReadAnew) {
    Write("a.ini", "[A]\r\nx=1\r\n");
    const auto reader = files.Open(WidePath("a.ini"));
    const auto writer = files.Open(WidePath("a.ini"));
    writer->SetString(L"A", L"x", L"2");
    EXPECT_EQ(reader->GetString(L"A", L"x", L""), L"1");
    EXPECT_EQ(ValueIn("a.ini"), L"1");
    writer->Release();
    EXPECT_EQ(reader->GetString(L"A", L"x", L""), L"1");
    EXPECT_EQ(ValueIn("a.ini"), L"2");
}

TEST_F(DocumentCacheTest, AFileThatTookTheNameOfAnotherIsRead) {
    Write("a.ini", "[A]\r\nx=1\r\n");
    Write("b.ini", "[A]\r\nx=2\r\n");
    EXPECT_EQ(ValueIn("a.ini"), L"1");
    EXPECT_EQ(ValueIn("b.ini"), L"2");
    std::filesystem::rename(Path("a.ini"), Path("c.ini"));
    std::filesystem::rename(Path("b.ini"), Path("a.ini"));
    EXPECT_EQ(ValueIn("a.ini"), L"2");
    EXPECT_EQ(ValueIn("c.ini"), L"1");
    EXPECT_EQ(files.Open(WidePath("b.ini")), nullptr);
}

TEST_F(DocumentCacheTest, AFileThatIsGoneIsGone) {
    Write("a.ini", "[A]\r\nx=1\r\n");
    EXPECT_EQ(ValueIn("a.ini"), L"1");
    std::filesystem::remove(Path("a.ini"));
    EXPECT_EQ(files.Open(WidePath("a.ini")), nullptr);
    std::filesystem::create_directory(Path("a.ini"));
    EXPECT_EQ(ErrorIn([&] { files.Open(WidePath("a.ini")); }).Description(),
              WidePath("a.ini") + L": can't be read: it is no plain file");
}

/// Two changes within one tick of the clock, with the same size, have the same stamp.
TEST_F(DocumentCacheTest, AFileOfThisVeryMomentIsReadAnew) {
    Write("a.ini", "[A]\r\nx=1\r\n");
    struct stat status {};
    ASSERT_EQ(::stat(Path("a.ini").c_str(), &status), 0);
    calls.frozen = status;
    calls.aheadSeconds = 0;
    calls.frozen->st_ctim = calls.Now();
    EXPECT_EQ(ValueIn("a.ini"), L"1");
    Write("a.ini", "[A]\r\nx=2\r\n");
    EXPECT_EQ(ValueIn("a.ini"), L"2");
}

TEST_F(DocumentCacheTest, AFileThatChangesWhileItIsReadIsReadAnew) {
    Write("a.ini", "[A]\r\nx=1\r\n");
    calls.whileReading = [&] { WriteLater("a.ini", "[A]\r\nx=2\r\n"); };
    EXPECT_EQ(ValueIn("a.ini"), L"1");
    EXPECT_EQ(ValueIn("a.ini"), L"2");
}

TEST_F(DocumentCacheTest, OnlyTheFilesUsedLastAreKept) {
    const std::vector<std::string> names = {"a", "b", "c", "d", "e"};
    ASSERT_EQ(names.size(), DocumentCache::MostDocuments + 1);
    for (const std::string& name : names) {
        Write(name, "[A]\r\nx=" + name + "\r\n");
    }
    for (const char* name : {"a", "b", "c", "d", "a", "e", "a", "c", "d", "e"}) {
        EXPECT_EQ(ValueIn(name), String(1, static_cast<wchar_t>(*name)));
    }
    EXPECT_EQ(calls.reads, 5);
    ValueIn("b");
    EXPECT_EQ(calls.reads, 6);
}

TEST(FileStampTest, IsSettledWhenItsTickIsOver) {
    FileStamp fine;
    fine.changed = {1000, 123'456'789};
    EXPECT_FALSE(IsSettled(fine, {1000, 123'456'789}));
    EXPECT_FALSE(IsSettled(fine, {1000, 143'456'789}));
    EXPECT_TRUE(IsSettled(fine, {1000, 143'456'790}));
    EXPECT_FALSE(IsSettled(fine, {999, 999'999'999})) << "from the future";
    FileStamp coarse;
    coarse.changed = {1000, 0};
    EXPECT_FALSE(IsSettled(coarse, {1002, 0}));
    EXPECT_TRUE(IsSettled(coarse, {1002, 1}));
}

TEST(FileStampTest, EveryPartCounts) {
    const FileStamp stamp{1, 2, 3, {4, 5}, {6, 7}};
    EXPECT_EQ(stamp, (FileStamp{1, 2, 3, {4, 5}, {6, 7}}));
    for (const FileStamp& other :
         {FileStamp{9, 2, 3, {4, 5}, {6, 7}}, FileStamp{1, 9, 3, {4, 5}, {6, 7}},
          FileStamp{1, 2, 9, {4, 5}, {6, 7}}, FileStamp{1, 2, 3, {4, 9}, {6, 7}},
          FileStamp{1, 2, 3, {4, 5}, {6, 9}}}) {
        EXPECT_FALSE(stamp == other);
    }
}

}  // namespace
}  // namespace ace::workbench
