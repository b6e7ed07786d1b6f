/// Every allocation of every operation fails, once or from there on for good: what comes out is
/// error 7, counts and elements agree afterwards, and the same call succeeds when there is memory.
#include <thread>

#include <ace/core/action_store.h>
#include <ace/core/module_columns.h>
#include <ace/core/operation.h>

#include "support/allocation_counter.h"
#include "support/every_kind.h"
#include "support/list_agreement.h"
#include "support/sample.h"

namespace ace::test {
namespace {

/// Files in memory, and nothing else: its yields allocate nothing.
class FileHost : public IHostFactory {
  public:
    std::shared_ptr<ISystemServices> MakeSystemServices() override {
        return std::make_shared<Services>(store);
    }
    sim::SimHost store;

  private:
    struct Services : DefaultSystemServices {
        explicit Services(sim::SimHost& owner) : host(owner) {}
        std::shared_ptr<ISettingsFile> OpenSettingsFile(std::int32_t kind, std::int32_t,
                                                        const String& name, std::int32_t,
                                                        std::int32_t) override {
            return host.OpenFile(kind, name);
        }
        sim::SimHost& host;
    };
};

/// The texts of the test itself are made before any memory is out.
const String File = L"lists.ini";
const String Name = L"a name that needs memory of its own";

/// One object of one module kind on full lists.
struct Bench {
    Bench(const std::shared_ptr<FileHost>& files, aceModul moduleKind) : context(files) {
        engine = std::make_unique<aceActionsEngine>(context);
        engine->LoadActions(File, moduleKind == aceVKSDUT ? 3 : 2, moduleKind);
    }

    ThreadContext context;
    std::unique_ptr<aceActionsEngine> engine;
};

struct OperationRow {
    const char* name;
    aceModul moduleKind;
    void (*call)(aceActionsEngine& engine);
};
void PrintTo(const OperationRow& row, std::ostream* out) {
    *out << row.name;
}

template <aceModul Modul>
void Load(aceActionsEngine& engine) {
    engine.LoadActions(File, Modul == aceVKSDUT ? 3 : 2, Modul);
}
void Save(aceActionsEngine& engine) {
    engine.SaveActions(File);
}
void SetPlaceholders(aceActionsEngine& engine) {
    static const aceVKSVar variables = [] {
        aceVKSVar made;
        made.strSearch.Redim(0, 0);
        made.valReplace.Redim(0, 0);
        made.valReplace[0] = Name;
        return made;
    }();
    engine.SetVKSReplaceVar(variables.strSearch, variables.valReplace);
}

const OperationRow Operations[] = {
    {"LoadTemplate", aceTemplate, Load<aceTemplate>},
    {"LoadMonitoring", aceMonitoring, Load<aceMonitoring>},
    {"LoadGeneral", aceEMSAutoTemplateGeneral, Load<aceEMSAutoTemplateGeneral>},
    {"LoadSusceptibility", aceEMSAutoTemplate, Load<aceEMSAutoTemplate>},
    {"LoadEmission", aceEMIAutoTemplate, Load<aceEMIAutoTemplate>},
    {"LoadSequence", aceTSTemplate, Load<aceTSTemplate>},
    {"LoadAzimuth", aceAziChart, Load<aceAziChart>},
    {"LoadWireless", aceVKSTemplate, Load<aceVKSTemplate>},
    {"LoadMatrix", aceVKSDUT, Load<aceVKSDUT>},
    {"SaveTemplate", aceTemplate, Save},
    {"SaveWireless", aceVKSTemplate, Save},
    {"SaveMatrix", aceVKSDUT, Save},
    {"StartTest", aceTemplate, [](auto& engine) { engine.StartTest(); }},
    {"StartWirelessTest", aceVKSTemplate, [](auto& engine) { engine.StartTest(); }},
    {"EnterSubrange", aceTemplate, [](auto& engine) { engine.EnterSubrange(1); }},
    {"NewFrequency", aceTemplate, [](auto& engine) { engine.NewFrequency(30e6, true); }},
    {"StopTest", aceTemplate, [](auto& engine) { engine.StopTest(); }},
    {"EnterNoGo", aceMonitoring, [](auto& engine) { engine.EnterNoGo(1, Name); }},
    {"EnterStep", aceEMSAutoTemplate, [](auto& engine) { engine.EnterStep(1); }},
    {"StepDescription", aceEMSAutoTemplate, [](auto& engine) { engine.StepDescription(1); }},
    {"VKSStep", aceVKSTemplate, [](auto& engine) { engine.VKSStep(L"T1", L"S1"); }},
    {"AddSubrange", aceTemplate, [](auto& engine) { engine.AddSubrange(1); }},
    {"AddTest", aceVKSTemplate, [](auto& engine) { engine.AddSubrange(3, Name); }},
    {"DeleteSubrange", aceTemplate, [](auto& engine) { engine.DeleteSubrange(1); }},
    {"DeleteTest", aceVKSTemplate, [](auto& engine) { engine.DeleteSubrange(1, L"T1"); }},
    {"MoveSubrange", aceTemplate, [](auto& engine) { engine.MoveSubrange(2, 1); }},
    {"SwapSubrange", aceTemplate, [](auto& engine) { engine.SwapSubrange(2, 1); }},
    {"AddVKSStep", aceVKSTemplate, [](auto& engine) { engine.AddVKSStep(L"S9", L"T1", Name); }},
    {"AddVKSDUTFreq", aceVKSDUT, [](auto& engine) { engine.AddVKSDUTFreq(Name, 5e9); }},
    {"AddVKSDUTBandwidthID", aceVKSDUT,
     [](auto& engine) { engine.AddVKSDUTBandwidthID(Name, -1); }},
    {"AddVKSDUTPowerID", aceVKSDUT, [](auto& engine) { engine.AddVKSDUTPowerID(Name, -1); }},
    {"DeleteVKSDUTFreq", aceVKSDUT, [](auto& engine) { engine.DeleteVKSDUTFreq(2.4e9); }},
    {"DeleteVKSDUTAll", aceVKSDUT, [](auto& engine) { engine.DeleteVKSDUTAll(); }},
    {"SetVKSDUTInfluence", aceVKSDUT, [](auto& engine) { engine.SetVKSDUTInfluence(0, 1, 1); }},
    {"SetVKSReplaceVar", aceVKSDUT, SetPlaceholders},
    {"AnotherEngine", aceTemplate, [](auto& engine) { aceActionsEngine(engine.State().Context); }},
};

/// The number of the error, -1 for a foreign one; nothing is written to the test's report in here,
/// there is no memory for it.
template <class Call>
std::int32_t NumberOfError(Call&& call) {
    try {
        call();
        return 0;
    } catch (const RunTimeError& error) {
        return error.Number();
    } catch (...) {
        return -1;
    }
}

class OutOfMemoryTest : public ::testing::TestWithParam<OperationRow> {
  protected:
    OutOfMemoryTest() {
        host->store.journal.Bound(10);
        ThreadContext context(host);
        aceActionsEngine maker(context);
        FillModule(maker.State(), GetParam().moduleKind);
        maker.SaveActions(File);
        file = host->store.files[File];
    }
    /// Fails each allocation of the operation in turn; a sample of them by default.
    void Sweep(bool forEver) {
        Bench whole(host, GetParam().moduleKind);
        const std::size_t count = AllocationsOf([&] { EXPECT_EQ(Run(*whole.engine), 0); });
        Sample sample(30);
        for (std::size_t n = 1; n <= count; ++n) {
            if (n <= 3 || sample.Takes()) {
                FailAt(n, forEver);
            }
        }
    }

  private:
    void FailAt(std::size_t n, bool forEver) {
        host->store.files[File] = file;
        Bench bench(host, GetParam().moduleKind);
        std::int32_t error = 0;
        {
            const FailingAllocations failing(n, forEver);
            error = Run(*bench.engine);
        }
        EXPECT_THAT(error, ::testing::AnyOf(0, Errors::OutOfMemory)) << "allocation " << n;
        EXPECT_THAT(ListAgreement::BreachesWithKeys(bench.engine->State()), ::testing::IsEmpty())
            << "allocation " << n;
        EXPECT_EQ(Run(*bench.engine), 0) << "allocation " << n;
    }
    static std::int32_t Run(aceActionsEngine& engine) {
        return NumberOfError([&] { GetParam().call(engine); });
    }

    std::shared_ptr<FileHost> host = std::make_shared<FileHost>();
    sim::SimSections file;
};

INSTANTIATE_TEST_SUITE_P(Operations, OutOfMemoryTest, ::testing::ValuesIn(Operations),
                         [](const auto& row) { return row.param.name; });

TEST_P(OutOfMemoryTest, AnAllocationThatFailsOnceIsError7OrPassedOver) {
    Sweep(false);
}

TEST_P(OutOfMemoryTest, OutOfMemoryForGoodIsError7OrPassedOver) {
    Sweep(true);
}

/// The first test, step and row of an engine that never loaded a file.
class FirstOfAllTest : public ::testing::TestWithParam<OperationRow> {};

const OperationRow FirstOperations[] = {
    {"Subrange", aceTemplate, [](auto& engine) { engine.AddSubrange(1); }},
    {"Test", aceVKSTemplate, [](auto& engine) { engine.AddSubrange(1, Name); }},
    {"Step", aceVKSTemplate, [](auto& engine) { engine.AddVKSStep(Name, Name, Name); }},
    {"Row", aceVKSDUT, [](auto& engine) { engine.AddVKSDUTBandwidthID(Name); }},
};
INSTANTIATE_TEST_SUITE_P(Operations, FirstOfAllTest, ::testing::ValuesIn(FirstOperations),
                         [](const auto& row) { return row.param.name; });

TEST_P(FirstOfAllTest, NoCountStandsBeforeAnArrayThatWasNeverMade) {
    const auto host = std::make_shared<FileHost>();
    std::int32_t error = Errors::OutOfMemory;
    std::size_t n = 0;
    for (; error != 0 && n < 100; ++n) {
        ThreadContext context(host);
        aceActionsEngine engine(context);
        engine.State().Modul = GetParam().moduleKind;
        {
            const FailingAllocations failing(n + 1, true);
            error = NumberOfError([&] { GetParam().call(engine); });
        }
        EXPECT_THAT(error, ::testing::AnyOf(0, Errors::OutOfMemory)) << "allocation " << n + 1;
        EXPECT_THAT(ListAgreement::BreachesWithKeys(engine.State()), ::testing::IsEmpty())
            << "allocation " << n + 1;
        EXPECT_EQ(NumberOfError([&] { GetParam().call(engine); }), 0) << "allocation " << n + 1;
    }
    EXPECT_GT(n, 1U) << "no allocation has failed";
    EXPECT_EQ(error, 0);
}

/// Fails each allocation of the copy in turn; a sample of them by default.
void CopyWithoutMemory(aceModul moduleKind, CopyFor purpose, const ModuleLists& from,
                       const ModuleLists& to) {
    ModuleLists copy = to;
    const std::size_t count = AllocationsOf([&] { CopyModule(moduleKind, purpose, from, copy); });
    Sample sample(30);
    for (std::size_t n = 1; n <= count; ++n) {
        if (n > 3 && !sample.Takes()) {
            continue;
        }
        ModuleLists target = to;
        std::int32_t error = 0;
        {
            const FailingAllocations failing(n, false);
            error = NumberOfError([&] { CopyModule(moduleKind, purpose, from, target); });
        }
        EXPECT_EQ(error, Errors::OutOfMemory);
        EXPECT_THAT(ListAgreement::Breaches(target), ::testing::IsEmpty()) << "allocation " << n;
    }
}

/// Full lists go to empty ones, and the other way round.
TEST(OutOfMemoryError, ACopyOfAModuleLeavesNoCountBeforeItsArray) {
    for (const ModuleRow& module : ModuleTable) {
        for (const CopyFor purpose : {CopyFor::Editor, CopyFor::Store, CopyFor::Print}) {
            ThreadContext context;
            aceActionsEngine full(context);
            FillModule(full.State(), module.moduleKind);
            CopyWithoutMemory(module.moduleKind, purpose, full.State(), {});
            CopyWithoutMemory(module.moduleKind, purpose, {}, full.State());
        }
    }
}

/// A host that has every failed statement run again.
class AgainHost : public IHostFactory {
  public:
    std::shared_ptr<ITraceLog> MakeTraceLog() override { return std::make_shared<Again>(); }

  private:
    struct Again : DefaultTraceLog {
        std::int32_t ReportError(const RunTimeError&, std::int32_t, std::int32_t) override {
            return RetryStatement;
        }
    };
};

/// Four sets, each with its number of waits.
DynArray<p_Subrange> FourSets() {
    DynArray<p_Subrange> sets;
    sets.Redim(0, 3);
    for (std::int32_t i = 0; i < 4; ++i) {
        Fill(sets[i], EnterList, std::vector<p_Action>(static_cast<std::size_t>(i) + 1));
    }
    return sets;
}

/// What is left has two, three and four waits, and the spare element a copy of the last.
TEST(OutOfMemoryError, ADeletionThatIsTriedAgainMovesNothingTwice) {
    ThreadContext context(std::make_shared<AgainHost>());
    context.TraceLog();
    context.Platform();
    for (std::size_t n = 1; n <= 5; ++n) {
        DynArray<p_Subrange> sets = FourSets();
        std::int32_t count = 4;
        std::int32_t index = 1;
        {
            const FailingAllocations failing(n, false);
            modActions::DeleteEntry(context, sets, count, index);
        }
        ASSERT_EQ(count, 3);
        for (std::int32_t i = 0; i < count; ++i) {
            EXPECT_EQ(sets[i].EnterCount, i + 2) << "allocation " << n;
        }
        EXPECT_EQ(sets[count].EnterCount, 4) << "allocation " << n;
    }
}

/// A key that needs memory of its own, and more than that of the letter before.
String LongKey(wchar_t letter) {
    return String(40U * static_cast<std::size_t>(letter - L'a' + 1), letter);
}

std::vector<String> All(const DynArray<String>& texts) {
    return {texts.begin(), texts.end()};
}

/// The second of four tests goes with its step; each array keeps an empty spare element.
TEST(OutOfMemoryError, KeysOfADeletionThatIsTriedAgainAreNeitherLostNorDoubled) {
    const std::vector<String> left{LongKey(L'a'), LongKey(L'c'), LongKey(L'd'), {}};
    const String gone = LongKey(L'b');
    for (std::size_t n = 1; n <= 20; ++n) {
        ThreadContext context(std::make_shared<AgainHost>());
        aceActionsEngine engine(context);
        EngineState& state = engine.State();
        state.Modul = aceVKSTemplate;
        for (const wchar_t letter : {L'a', L'b', L'c', L'd'}) {
            engine.AddSubrange(1, LongKey(letter));
            engine.AddVKSStep(LongKey(letter), LongKey(letter), Name);
        }
        {
            const FailingAllocations failing(n, false);
            engine.DeleteSubrange(1, gone);
        }
        EXPECT_EQ(All(state.VKSTestUKeys), left) << "allocation " << n;
        EXPECT_EQ(All(state.VKSStepUKeys), left) << "allocation " << n;
        EXPECT_EQ(All(state.VKSStepKeys), left) << "allocation " << n;
    }
}

/// Each test of a wireless template has its place as the number of its actions; the array of the
/// keys has no spare element, as after a load.
TEST(OutOfMemoryError, ADeletionLeavesEachTestItsKey) {
    for (std::size_t n = 1; n <= 20; ++n) {
        ThreadContext context;
        aceActionsEngine engine(context);
        EngineState& state = engine.State();
        state.Modul = aceVKSTemplate;
        for (const wchar_t letter : {L'a', L'b', L'c', L'd'}) {
            engine.AddSubrange(letter - L'a' + 1, LongKey(letter));
            state.VKSTests[state.VKSTestCount - 1].EnterCount = state.VKSTestCount;
        }
        state.VKSTestUKeys.RedimPreserve(3);
        const String gone = LongKey(L'b');
        {
            const FailingAllocations failing(n, false);
            NumberOfError([&] { engine.DeleteSubrange(1, gone); });
        }
        for (std::int32_t i = 0; i < state.VKSTestCount; ++i) {
            const auto letter = static_cast<wchar_t>(L'a' + state.VKSTests[i].EnterCount - 1);
            EXPECT_EQ(state.VKSTestUKeys[i], LongKey(letter)) << "allocation " << n;
        }
    }
}

TEST(OutOfMemoryError, AThreadWithoutMemoryForItsServicesGetsError7AndMayTryAgain) {
    std::thread([] {
        std::int32_t number = 0;
        {
            const FailingAllocations failing(1, true);
            number = NumberOfError([] { ThreadContext::Current(); });
        }
        EXPECT_EQ(number, Errors::OutOfMemory);
        EXPECT_EQ(ThreadContext::Current().InstanceCount, 0);
    }).join();
}

/// The error itself: raised, caught, reported and raised again without an allocation.
TEST(OutOfMemoryError, CostsNoMemoryOnItsWay) {
    ThreadContext context;
    context.TraceLog();
    context.Platform();
    std::int32_t number = 0;
    bool hasText = false;
    {
        const FailingAllocations failing(1, true);
        try {
            Guarded(context, [](const Statements& stmt) { stmt([] { throw std::bad_alloc(); }); });
        } catch (const RunTimeError& error) {
            number = error.Number();
            hasText = error.Description() == L"out of memory";
        }
    }
    EXPECT_EQ(number, Errors::OutOfMemory);
    EXPECT_TRUE(hasText);
}

TEST(OutOfMemoryError, AForeignTextThatCanNotBeCopiedIsError7) {
    const std::runtime_error foreign("a text that is longer than any string keeps inside");
    ThreadContext context;
    std::int32_t number = 0;
    {
        const FailingAllocations failing(1, true);
        try {
            throw foreign;
        } catch (...) {
            number = CurrentRunTimeError().Number();
        }
    }
    EXPECT_EQ(number, Errors::OutOfMemory);
}

}  // namespace
}  // namespace ace::test
