#include <ace/core/actions_engine.h>

#include "session_fixture.h"

namespace ace::workbench {
namespace {

class SettingsKeptTest : public FolderTest {
  protected:
    /// Copies an example, loads it into an engine and saves it back; answers whether it is as it
    /// was.
    bool IsKept(const std::string& name, std::int32_t subRanges, aceModul moduleKind) {
        std::ostringstream bytes;
        bytes << std::ifstream(std::string(ACE_EXAMPLES) + "/" + name, std::ios::binary).rdbuf();
        Write(name, bytes.str());
        ThreadContext context(std::make_shared<SessionHost>());
        aceActionsEngine engine(context);
        engine.LoadActions(WidePath(name), subRanges, moduleKind);
        engine.SaveActions(WidePath(name));
        return !bytes.str().empty() && Read(name) == bytes.str();
    }
};

TEST_F(SettingsKeptTest, RealSetUpsAreSavedByteForByte) {
    EXPECT_TRUE(IsKept("ri_template.ini", 3, aceTemplate));
    EXPECT_TRUE(IsKept("wireless_dut.ini", 0, aceVKSDUT));
    EXPECT_TRUE(IsKept("wireless_dut.ini", 2, aceVKSDUT));
    EXPECT_TRUE(IsKept("wireless_dut.ini", 3, aceVKSDUT));
}

TEST_F(SettingsKeptTest, AFileWithAnOldKeywordIsNotThatFileAfterASave) {
    EXPECT_FALSE(IsKept("demo_template.ini", 3, aceTemplate));  // SOUND and MSG become NOTIFY
}

}  // namespace
}  // namespace ace::workbench
