#include "matrix/matrix_fixture.h"

namespace ace::test {
namespace {

class StepTreeTest : public EngineTest {
  protected:
    StepTreeTest() { State().Modul = aceVKSTemplate; }

    /// Each step as "owner/key/name".
    Lines Steps() {
        Lines steps;
        for (std::int32_t i = 0; i < State().VKSStepCount; ++i) {
            steps.push_back(State().VKSStepUKeys[i] + L"/" + State().VKSStepKeys[i] + L"/" +
                            State().VKSStepNames[i]);
        }
        return steps;
    }
};

// ---- steps -----------------------------------------------------------------------------------

TEST_F(StepTreeTest, StepIsAddedBehindTheLastWithASpareElementBehindIt) {
    engine->AddVKSStep(L"k1", L"T1", L"first");
    engine->AddVKSStep(L"k2", L"T1", L"second");

    EXPECT_EQ(Steps(), (Lines{L"T1/k1/first", L"T1/k2/second"}));
    EXPECT_EQ(TextsOf(State().VKSSteps), (Lines{L"....", L"....", L"...."}));
    EXPECT_EQ(State().VKSStepKeys.UpperBound(), 2);
    EXPECT_EQ(State().VKSStepUKeys.UpperBound(), 2);
    EXPECT_EQ(State().VKSStepNames.UpperBound(), 2);
}

TEST_F(StepTreeTest, KnownPairKeepsItsOldName) {
    engine->AddVKSStep(L"k1", L"T1", L"first");

    engine->AddVKSStep(L"k1", L"T1", L"renamed");

    EXPECT_EQ(Steps(), Lines{L"T1/k1/first"});
}

TEST_F(StepTreeTest, PairIsComparedAsAWholeAndToTheLetter) {
    engine->AddVKSStep(L"k1", L"T1", L"a");
    engine->AddVKSStep(L"k1", L"T2", L"b");
    engine->AddVKSStep(L"K1", L"T1", L"c");
    engine->AddVKSStep(L"k1", L"t1", L"d");
    engine->AddVKSStep(L"T1", L"k1", L"e");

    EXPECT_EQ(Steps(), (Lines{L"T1/k1/a", L"T2/k1/b", L"T1/K1/c", L"t1/k1/d", L"k1/T1/e"}));
}

TEST_F(StepTreeTest, NeitherTheModuleNorTheTestIsAskedFor) {
    State().Modul = aceAziChart;

    engine->AddVKSStep(L"k", L"no such test", L"n");

    EXPECT_EQ(Steps(), Lines{L"no such test/k/n"});
}

TEST_F(StepTreeTest, NewStepIsEmptyAlsoWhereTheSparePlaceHoldsADeletedOne) {
    engine->AddVKSStep(L"k1", L"T1", L"n");
    State().VKSSteps[0] = Letter(L'A');
    State().VKSTestUKeys.Redim(0, 0);
    engine->DeleteSubrange(1, L"T1");
    ASSERT_EQ(TextsOf(State().VKSSteps), Lines{L"AAAA"});

    engine->AddVKSStep(L"k2", L"T2", L"n");

    EXPECT_EQ(TextsOf(State().VKSSteps), (Lines{L"..A.", L"AAAA"}));
}

TEST_F(StepTreeTest, AddVKSStepTellsItsKey) {
    host->tracing = true;

    engine->AddVKSStep(L"k1", L"T1", L"n");
    engine->AddVKSStep(L"k1", L"T1", L"n");

    const Lines again = {Start(EngineModule, L"AddVKSStep", L"Key = k1"), End(L"AddVKSStep")};
    EXPECT_EQ(TakeEffects(), Journal(again[0], Start(CodeModule, L"AddEntry", L"Index = 1"),
                                     End(L"AddEntry"), again[1], again));
}

TEST_F(StepTreeTest, StepsThatAreHeldAreErrorTenAndNothingIsAdded) {
    engine->AddVKSStep(L"k1", L"T1", L"n");
    const DynArray<p_Subrange>::Hold hold(State().VKSSteps);

    EXPECT_EQ(ErrorOf([&] { engine->AddVKSStep(L"k2", L"T1", L"n"); }), 10);

    EXPECT_EQ(Steps(), Lines{L"T1/k1/n"});
}

TEST_F(StepTreeTest, FewerKeysThanStepsAreErrorNine) {
    State().VKSStepCount = 1;

    EXPECT_EQ(ErrorOf([&] { engine->AddVKSStep(L"k", L"T", L"n"); }), 9);

    EXPECT_EQ(TakeEffects(), Lines{SubscriptReported});
}

// ---- the host's tests ----------------------------------------------------------------------

class HostTestsTest : public StepTreeTest {
  protected:
    /// The arrays have as many places as `places`, all taken.
    void HavePlaces(std::size_t places) {
        State().VKSHostUKeys = ArrayOf(Lines(places, L"old key"));
        State().VKSHostNames = ArrayOf(Lines(places, L"old name"));
    }
    Lines Keys() { return TextsOf(State().VKSHostUKeys); }
    Lines Names() { return TextsOf(State().VKSHostNames); }
};

TEST_F(HostTestsTest, KeysAndNamesAreTakenAndTheRestIsEmptied) {
    HavePlaces(4);

    engine->SetVKSTests(ArrayOf<String>({L"a", L"b"}), ArrayOf<String>({L"A", L"B"}));

    EXPECT_EQ(Keys(), (Lines{L"a", L"b", L"", L""}));
    EXPECT_EQ(Names(), (Lines{L"A", L"B", L"", L""}));
}

TEST_F(HostTestsTest, NamesOfAnotherLengthAreNotTakenAndTheOldOnesStay) {
    HavePlaces(3);

    engine->SetVKSTests(ArrayOf<String>({L"a", L"b"}), ArrayOf<String>({L"A", L"B", L"C"}));

    EXPECT_EQ(Keys(), (Lines{L"a", L"b", L""}));
    EXPECT_EQ(Names(), (Lines{L"old name", L"old name", L""}));
}

TEST_F(HostTestsTest, MoreTestsThanPlacesAreErrorNineBehindTheLastPlace) {
    HavePlaces(2);

    EXPECT_EQ(ErrorOf([&] {
                  engine->SetVKSTests(ArrayOf<String>({L"a", L"b", L"c"}),
                                      ArrayOf<String>({L"A", L"B", L"C"}));
              }),
              9);

    EXPECT_EQ(Keys(), (Lines{L"a", L"b"}));
    EXPECT_EQ(Names(), (Lines{L"A", L"B"}));
    EXPECT_EQ(TakeEffects(), Lines{SubscriptReported});
}

TEST_F(HostTestsTest, ArraysThatWereNeverMadeAreErrorNine) {
    const DynArray<String> some = ArrayOf<String>({L"a"});
    EXPECT_EQ(ErrorOf([&] { engine->SetVKSTests(some, some); }), 9);

    HavePlaces(1);
    EXPECT_EQ(ErrorOf([&] { engine->SetVKSTests({}, some); }), 9);
    EXPECT_EQ(ErrorOf([&] { engine->SetVKSTests(some, {}); }), 9);
    EXPECT_EQ(Keys(), Lines{L"a"});
    EXPECT_EQ(Names(), Lines{L"old name"});
}

TEST_F(HostTestsTest, SetVKSTestsHasNoMessage) {
    HavePlaces(1);
    host->tracing = true;

    engine->SetVKSTests(ArrayOf<String>({L"a"}), ArrayOf<String>({L"A"}));

    EXPECT_EQ(TakeEffects(),
              Journal(Start(EngineModule, L"SetVKSTests", L""), End(L"SetVKSTests")));
}

TEST_F(HostTestsTest, NumberOfPlacesFollowsTheTestsOfTheHost) {
    engine->AddSubrange(1, L"T1");
    engine->AddSubrange(2, L"T2");

    engine->SetVKSTests(ArrayOf<String>({L"T1", L"T2"}), ArrayOf<String>({L"One", L"Two"}));

    EXPECT_EQ(Keys(), (Lines{L"T1", L"T2", L""}));
    EXPECT_EQ(Names(), (Lines{L"One", L"Two", L""}));
}

}  // namespace
}  // namespace ace::test
