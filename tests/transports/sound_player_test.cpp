#include "workbench/transports/sound_player.h"

#include "transports/script_fixture.h"

namespace ace::workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using SoundPlayerTest = ScriptTest;

TEST_F(SoundPlayerTest, ThePlayerGetsTheFileAsItsLastArgument) {
    Script("player", "printf '<%s>' \"$@\" > out.tmp; mv out.tmp out");
    Write("a b.wav", "RIFF");
    SoundPlayer sounds(L"\"" + WidePath("player") + L"\" --quiet");
    EXPECT_TRUE(sounds.Play(WidePath("a b.wav")));
    EXPECT_EQ(ReadWhenThere("out"), "<--quiet><" + Path("a b.wav") + ">");
}

TEST_F(SoundPlayerTest, AMissingFileIsAFailure) {
    Script("player", "exit 0");
    SoundPlayer sounds(WidePath("player"));
    EXPECT_FALSE(sounds.Play(WidePath("missing.wav")));
    EXPECT_EQ(sounds.Failure(), L"there is no such file");
    EXPECT_FALSE(sounds.Play(L""));
    EXPECT_FALSE(sounds.Play(WidePath(".")));
}

TEST_F(SoundPlayerTest, AMachineWithoutThePlayerIsAFailure) {
    Write("a.wav", "RIFF");
    SoundPlayer missing(WidePath("missing"));
    EXPECT_FALSE(missing.Play(WidePath("a.wav")));
    EXPECT_EQ(missing.Failure(), WidePath("missing") + L": can't start: No such file or directory");
    EXPECT_FALSE(SoundPlayer(L"\"no end").Play(WidePath("a.wav")));
}

TEST_F(SoundPlayerTest, ASoundThatStillPlaysIsLeftAlone) {
    Script("player", "echo x >> out; while [ ! -e stop ]; do sleep 0.02; done");
    Write("a.wav", "RIFF");
    SoundPlayer sounds(WidePath("player"));
    EXPECT_TRUE(sounds.Play(WidePath("a.wav")));
    ReadWhenThere("out");
    EXPECT_FALSE(sounds.Play(WidePath("a.wav")));
    EXPECT_EQ(sounds.Failure(), L"the sound before it still plays");
    EXPECT_EQ(Read("out"), "x\n");
    Write("stop", "");
    EXPECT_TRUE(Eventually([&] { return sounds.Play(WidePath("a.wav")); }));
}

TEST_F(SoundPlayerTest, TheFirstKnownPlayerOfTheFoldersIsTaken) {
    for (const char* sub : {"one", "two"}) {
        std::filesystem::create_directory(Path(sub));
    }
    const std::string folders = Path("one") + ":" + Path("two");
    EXPECT_THAT(FindPlayer(folders), IsEmpty());
    EXPECT_THAT(FindPlayer(""), IsEmpty());
    Script("one/aplay", "exit 0");
    EXPECT_THAT(FindPlayer(folders), ElementsAre(Path("one/aplay"), "-q"));
    Write("one/paplay", "not executable");
    EXPECT_THAT(FindPlayer(folders), ElementsAre(Path("one/aplay"), "-q"));
    Script("two/paplay", "exit 0");
    EXPECT_THAT(FindPlayer(folders), ElementsAre(Path("two/paplay")));
}

}  // namespace
}  // namespace ace::workbench
