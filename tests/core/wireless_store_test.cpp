#include "support/fake_editor.h"
#include "support/store_fixture.h"

namespace ace::test {
namespace {

const String Loaded = L"Editor.LoadEditor(7)";

/// A wireless template with tests, their keys and steps.
class WirelessStoreTest : public EngineTest {
  protected:
    WirelessStoreTest() { State().Modul = aceVKSTemplate; }

    /// As a load leaves it: a key for each letter, and a spare element behind the last test.
    void HaveTests(StringView letters) {
        State().VKSTests = Letters(String(letters) + L" ");
        State().VKSTestCount = static_cast<std::int32_t>(letters.size());
        Lines keys;
        for (const wchar_t letter : letters) {
            keys.push_back(String(1, letter));
        }
        keys.emplace_back();
        State().VKSTestUKeys = ArrayOf(keys);
        State().VKSHostUKeys = ArrayOf(Lines(keys.size(), L"h"));
        State().VKSHostNames = ArrayOf(Lines(keys.size(), L"n"));
    }
    /// As a load leaves them, without a spare element: `owners` has the key of each step's test.
    void HaveSteps(StringView letters, const Lines& owners) {
        State().VKSSteps = Letters(letters);
        State().VKSStepCount = static_cast<std::int32_t>(letters.size());
        State().VKSStepUKeys = ArrayOf(owners);
        Lines keys;
        Lines names;
        for (const wchar_t letter : letters) {
            keys.push_back(String(L"key ") + letter);
            names.push_back(String(L"name ") + letter);
        }
        State().VKSStepKeys = ArrayOf(keys);
        State().VKSStepNames = ArrayOf(names);
    }
    void OpenEditor() { context.Editor = std::make_shared<FakeEditor>(*host); }
    Lines Tests() { return TextsOf(State().VKSTests); }
    Lines Keys() { return TextsOf(State().VKSTestUKeys); }
};

// ---- adding --------------------------------------------------------------------------------

TEST_F(WirelessStoreTest, AddSubrangePutsTheKeyAtTheEndWhereverTheTestGoes) {
    HaveTests(L"AB");

    engine->AddSubrange(1, L"new");

    EXPECT_EQ(Tests(), (Lines{L"..A.", L"AAAA", L"BBBB", L"...."}));
    EXPECT_EQ(Keys(), (Lines{L"A", L"B", L"new", L""}));
    EXPECT_EQ(TextsOf(State().VKSHostUKeys), (Lines{L"h", L"h", L"h", L""}));
    EXPECT_EQ(TextsOf(State().VKSHostNames), (Lines{L"n", L"n", L"n", L""}));
    EXPECT_EQ(State().VKSTestCount, 3);
}

TEST_F(WirelessStoreTest, AddSubrangeWithoutAKeyStoresAnEmptyOne) {
    HaveTests(L"A");

    engine->AddSubrange(9);

    EXPECT_EQ(Keys(), (Lines{L"A", L"", L""}));
}

TEST_F(WirelessStoreTest, FirstTestOfAnObjectThatWasNeverLoadedMakesTheArrays) {
    engine->AddSubrange(1, L"first");

    EXPECT_EQ(Tests(), (Lines{L"....", L"...."}));
    EXPECT_EQ(Keys(), (Lines{L"first", L""}));
    EXPECT_EQ(TextsOf(State().VKSHostNames), (Lines{L"", L""}));
    EXPECT_EQ(State().VKSTestCount, 1);
}

TEST_F(WirelessStoreTest, AddSubrangeShrinksTheArraysThatGapsInTheFileLeftTooLong) {
    HaveTests(L"ABCD");
    State().VKSTestCount = 1;

    engine->AddSubrange(2, L"new");

    EXPECT_EQ(Tests(), (Lines{L"AAAA", L"..B.", L"BBBB"}));
    EXPECT_EQ(Keys(), (Lines{L"A", L"new", L"C"}));
}

TEST_F(WirelessStoreTest, AddSubrangeNeverTellsTheEditor) {
    HaveTests(L"A");
    OpenEditor();

    engine->AddSubrange(1, L"new");

    EXPECT_EQ(TakeEffects(), Lines{});
}

// ---- deleting ------------------------------------------------------------------------------

TEST_F(WirelessStoreTest, DeleteSubrangeGoesByTheKeyAndIgnoresTheIndex) {
    HaveTests(L"ABC");

    engine->DeleteSubrange(77, L"B");

    EXPECT_EQ(Tests(), (Lines{L"AAAA", L"CCCC", L"CCCC"}));
    EXPECT_EQ(Keys(), (Lines{L"A", L"C", L""}));
    EXPECT_EQ(TextsOf(State().VKSHostUKeys), (Lines{L"h", L"h", L"h"}));
    EXPECT_EQ(TextsOf(State().VKSHostNames), (Lines{L"n", L"n", L"n"}));
    EXPECT_EQ(State().VKSTestCount, 2);
}

TEST_F(WirelessStoreTest, DeleteSubrangeComparesTheKeyToTheLetter) {
    HaveTests(L"AB");

    engine->DeleteSubrange(1, L"a");
    engine->DeleteSubrange(1, L"A ");

    EXPECT_EQ(State().VKSTestCount, 2);
}

TEST_F(WirelessStoreTest, DeleteSubrangeWithAnUnknownKeyDeletesNoTestAndNoStep) {
    HaveTests(L"AB");
    HaveSteps(L"XY", {L"A", L"B"});

    engine->DeleteSubrange(1, L"C");

    EXPECT_EQ(Tests(), (Lines{L"AAAA", L"BBBB", L"...."}));
    EXPECT_EQ(Keys(), (Lines{L"A", L"B", L""}));
    EXPECT_EQ(TextsOf(State().VKSSteps), (Lines{L"XXXX", L"YYYY"}));
    EXPECT_EQ(State().VKSStepCount, 2);
}

TEST_F(WirelessStoreTest, DeleteSubrangeOfTwoTestsWithTheSameKeyRemovesTheFirst) {
    HaveTests(L"ABC");
    State().VKSTestUKeys[2] = L"A";

    engine->DeleteSubrange(1, L"A");

    EXPECT_EQ(Tests(), (Lines{L"BBBB", L"CCCC", L"CCCC"}));
    EXPECT_EQ(Keys(), (Lines{L"B", L"A", L""}));
}

TEST_F(WirelessStoreTest, DeleteSubrangeRemovesAllStepsOfTheTestAndKeepsTheOrderOfTheOthers) {
    HaveTests(L"AB");
    HaveSteps(L"VWXYZ", {L"A", L"B", L"A", L"B", L"A"});

    engine->DeleteSubrange(1, L"A");

    EXPECT_EQ(State().VKSStepCount, 2);
    EXPECT_EQ(TextsOf(State().VKSSteps), (Lines{L"WWWW", L"YYYY", L"ZZZZ"}));
    EXPECT_EQ(TextsOf(State().VKSStepUKeys), (Lines{L"B", L"B", L"A"}));
    EXPECT_EQ(TextsOf(State().VKSStepKeys), (Lines{L"key W", L"key Y", L"key Z"}));
    EXPECT_EQ(TextsOf(State().VKSStepNames), (Lines{L"name W", L"name Y", L"name Z"}));
}

TEST_F(WirelessStoreTest, StepsOfATestThatIsNotThereGoAllTheSame) {
    HaveTests(L"A");
    HaveSteps(L"XY", {L"gone", L"A"});

    engine->DeleteSubrange(1, L"gone");

    EXPECT_EQ(State().VKSTestCount, 1);
    EXPECT_EQ(State().VKSStepCount, 1);
    EXPECT_EQ(TextsOf(State().VKSSteps), (Lines{L"YYYY", L"YYYY"}));
}

TEST_F(WirelessStoreTest, DeleteSubrangeOfTheOnlyTestWithItsOnlyStepLeavesTwoSpareElements) {
    HaveTests(L"A");
    HaveSteps(L"X", {L"A"});

    engine->DeleteSubrange(1, L"A");

    EXPECT_EQ(State().VKSTestCount, 0);
    EXPECT_EQ(State().VKSStepCount, 0);
    EXPECT_EQ(Tests(), Lines{L"AAAA"});
    EXPECT_EQ(Keys(), Lines{L""});
    EXPECT_EQ(TextsOf(State().VKSSteps), Lines{L"XXXX"});
}

TEST_F(WirelessStoreTest, SparePlaceIsSearchedTooSoThatAnEmptyKeyDropsTheLastTest) {
    HaveTests(L"AB");

    engine->DeleteSubrange(1);

    EXPECT_EQ(Tests(), (Lines{L"AAAA", L"BBBB"}));
    EXPECT_EQ(Keys(), (Lines{L"A", L"B"}));
    EXPECT_EQ(State().VKSTestCount, 1);
}

TEST_F(WirelessStoreTest, KeyInTheSparePlaceOfNoTestsMakesTheCountNegativeAndTwoArraysAnew) {
    HaveTests(L"");
    State().VKSTestUKeys = ArrayOf(Lines{L"left", L"over"});

    engine->DeleteSubrange(1, L"left");

    EXPECT_EQ(State().VKSTestCount, -1);
    EXPECT_EQ(Tests(), Lines{L"...."});
    EXPECT_EQ(Keys(), (Lines{L"over", L"over"}));
    EXPECT_EQ(TextsOf(State().VKSHostUKeys), Lines{L""});
    EXPECT_EQ(TextsOf(State().VKSHostNames), Lines{L""});
}

TEST_F(WirelessStoreTest, BelowZeroTestsTheNextAddFindsNoPlaceForItsKey) {
    HaveTests(L"");
    engine->DeleteSubrange(1);
    ASSERT_EQ(State().VKSTestCount, -1);

    EXPECT_EQ(ErrorOf([&] { engine->AddSubrange(1, L"A"); }), 9);
    EXPECT_EQ(State().VKSTestCount, 0);

    engine->AddSubrange(1, L"A");
    EXPECT_EQ(Keys(), (Lines{L"A", L""}));
}

TEST_F(WirelessStoreTest, DeleteSubrangeWithoutKeysIsErrorNine) {
    EXPECT_EQ(ErrorOf([&] { engine->DeleteSubrange(1, L"A"); }), 9);

    EXPECT_EQ(TakeEffects(), Lines{SubscriptReported});
}

TEST_F(WirelessStoreTest, StepWhoseNamesWereNeverMadeGoesAndErrorNineComesOut) {
    HaveTests(L"A");
    HaveSteps(L"XY", {L"A", L"B"});
    State().VKSStepNames.Erase();

    EXPECT_EQ(ErrorOf([&] { engine->DeleteSubrange(1, L"A"); }), 9);

    EXPECT_EQ(TakeEffects(), Lines{SubscriptReported});
    EXPECT_EQ(TextsOf(State().VKSSteps), (Lines{L"YYYY", L"YYYY"}));
    EXPECT_EQ(State().VKSStepCount, 1);
    EXPECT_EQ(TextsOf(State().VKSStepUKeys), (Lines{L"B", L"B"}));
    EXPECT_EQ(TextsOf(State().VKSStepKeys), (Lines{L"key X", L"key Y"}));
}

TEST_F(WirelessStoreTest, DeleteSubrangeLoadsTheEditorAgainWithoutASelection) {
    HaveTests(L"AB");
    OpenEditor();

    engine->DeleteSubrange(1, L"A");
    EXPECT_EQ(TakeEffects(), Lines{Loaded});

    engine->DeleteSubrange(1, L"unknown");
    EXPECT_EQ(TakeEffects(), Lines{Loaded});
}

TEST_F(WirelessStoreTest, DeleteSubrangeTracesTheEntriesThatItRemoves) {
    HaveTests(L"AB");
    HaveSteps(L"XY", {L"B", L"B"});
    host->tracing = true;

    engine->DeleteSubrange(5, L"B");

    const String code = L"modActions (Code)";
    EXPECT_EQ(TakeEffects(),
              Journal(Start(L"aceActionsEngine (Code)", L"DeleteSubrange", L"Index = 5"),
                      Start(code, L"DeleteEntry", L"Index = 2"), End(L"DeleteEntry"),
                      Start(code, L"DeleteEntry", L"Index = 1"), End(L"DeleteEntry"),
                      Start(code, L"DeleteEntry", L"Index = 1"), End(L"DeleteEntry"),
                      End(L"DeleteSubrange")));
}

TEST_F(WirelessStoreTest, ATestStaysWhenItsStepsAreHeld) {
    HaveTests(L"AB");
    HaveSteps(L"XY", {L"A", L"A"});
    const DynArray<p_Subrange>::Hold hold(State().VKSSteps);

    EXPECT_EQ(ErrorOf([&] { engine->DeleteSubrange(1, L"A"); }), 10);

    EXPECT_EQ(State().VKSTestCount, 2);
    EXPECT_EQ(TextsOf(State().VKSSteps), (Lines{L"XXXX", L"YYYY"}));
    EXPECT_EQ(State().VKSStepCount, 2);
}

// ---- moving and exchanging -----------------------------------------------------------------

TEST_F(WirelessStoreTest, MoveSubrangeDropsTheLastTestAndOverwritesTheDestination) {
    HaveTests(L"ABC");

    engine->MoveSubrange(1, 2);

    EXPECT_EQ(Tests(), (Lines{L"AAAA", L"AAAA", L"BBBB", L"CCCC"}));
    EXPECT_EQ(Keys(), (Lines{L"A", L"A", L"", L""}));
    EXPECT_EQ(State().VKSTestCount, 3);
}

TEST_F(WirelessStoreTest, MoveSubrangeTellsTheEditorOnceAtItsEnd) {
    HaveTests(L"AB");
    OpenEditor();

    engine->MoveSubrange(2, 1);

    EXPECT_EQ(TakeEffects(), Journal(Loaded, L"Editor.SetSubrange(0)"));
}

TEST_F(WirelessStoreTest, SwapSubrangeExchangesTestsAndKeys) {
    HaveTests(L"ABC");
    OpenEditor();

    engine->SwapSubrange(3, 1);

    EXPECT_EQ(Tests(), (Lines{L"CCCC", L"BBBB", L"AAAA", L"...."}));
    EXPECT_EQ(Keys(), (Lines{L"C", L"B", L"A", L""}));
    EXPECT_EQ(TakeEffects(), Journal(Loaded, L"Editor.SetSubrange(0)"));
}

TEST_F(WirelessStoreTest, SwapSubrangeWithoutAKeyAtItsPlaceIsErrorNine) {
    HaveTests(L"AB");
    State().VKSTestUKeys.RedimPreserve(0);

    EXPECT_EQ(ErrorOf([&] { engine->SwapSubrange(1, 2); }), 9);
    EXPECT_TRUE(State().InternalSubrangeOp);
}

}  // namespace
}  // namespace ace::test
