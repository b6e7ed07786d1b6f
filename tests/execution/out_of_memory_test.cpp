/// Every allocation of every operation that allocates fails, once or from there on for good: what
/// comes out is error 7, counts and elements agree afterwards, and the same call succeeds when
/// there is memory. A sample runs by default, as `Sample` says.
#include <ace/core/module_columns.h>

#include "execution/quiet_host.h"
#include "support/allocation_counter.h"
#include "support/error_of.h"
#include "support/list_agreement.h"
#include "support/lists_of_every_kind.h"
#include "support/sample.h"

namespace ace::test {
namespace {

/// The texts of the test itself are made before any memory is out.
const String File = L"lists.ini";
const String Name = L"a name that needs memory of its own";

struct Bench;

struct OperationRow {
    std::string name;
    aceModul moduleKind;
    void (*call)(aceActionsEngine& engine);
    void (*prepare)(Bench& bench) = nullptr;  ///< before any memory is out
    std::int32_t error = 0;                   ///< what comes out while there is memory
};
void PrintTo(const OperationRow& row, std::ostream* out) {
    *out << row.name;
}

/// One object of one module kind on full lists, with a host of its own, so that each bench
/// allocates as the one before.
struct Bench {
    Bench(const sim::SimSections& file, const OperationRow& row) {
        host->store.journal.Bound(10);
        host->store.files[File] = file;
        engine = std::make_unique<aceActionsEngine>(context);
        engine->LoadActions(File, row.moduleKind == aceVKSDUT ? 3 : 2, row.moduleKind);
        if (row.prepare != nullptr) {
            row.prepare(*this);
        }
    }

    std::shared_ptr<QuietHost> host = std::make_shared<QuietHost>();
    ThreadContext context{host};
    std::unique_ptr<aceActionsEngine> engine;
};

// ---- what some operations need -----------------------------------------------------------------

/// A row for each of two bandwidths with each of two powers, at one frequency.
void MakeTables(Bench& bench) {
    bench.engine->SetVKSDUTInfluence(1, 1, 1);
    bench.engine->AddVKSDUTFreq(Name, 2.4e9);
    for (int i = 0; i < 2; ++i) {
        bench.engine->AddVKSDUTBandwidthID(Name);
        bench.engine->AddVKSDUTPowerID(Name);
    }
}
void FillSequence(Bench& bench) {
    bench.engine->State().TSTest = FullSet();
    FillNumbered(bench.engine->State(), TSTestSets, FullSet());
}
void LeaveComment(Bench& bench) {
    bench.context.EutCheckComment = Name;
}

void TakeBenchAway(Bench& bench) {
    bench.host->isBare = true;
}

/// An editor that hands out lists of its own as one does that keeps them in a `ModuleLists`.
class CopyingEditor : public FakeEditor {
  public:
    CopyingEditor(sim::SimHost& host, const ModuleLists& lists)
        : FakeEditor(host), x_lists(lists) {}
    void GetMainActions(ModuleLists& lists) override {
        CopyModule(aceTemplate, CopyFor::Store, x_lists, lists);
    }

  private:
    ModuleLists x_lists;
};
/// Nothing is copied where nothing was edited.
void OpenEditor(Bench& bench) {
    ModuleLists edited = bench.engine->State();
    edited.MainTest.Enter[0].IgnoreErr = true;
    edited.MainSubranges[1].Enter[0].IgnoreErr = true;
    bench.context.Editor = std::make_shared<CopyingEditor>(bench.host->store, edited);
}

// ---- the operations ----------------------------------------------------------------------------

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

void AnnounceTests(aceActionsEngine& engine) {
    static const DynArray<String> keys = [] {
        DynArray<String> made;
        made.Redim(0, 1);
        made[0] = made[1] = Name;
        return made;
    }();
    engine.SetVKSTests(keys, keys);
}
void CountRowsActions(aceActionsEngine& engine) {
    double frequency = 2.4e9;
    std::int32_t bandwidth = 0;
    std::int32_t power = 0;
    engine.VKSDUTStepActionCount(frequency, bandwidth, power);
}

/// All but the moments.
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
    {"WriteOtherModule", aceTemplate,
     [](auto& engine) { engine.WriteActionLists(File, aceTSTemplate); }, FillSequence},
    {"ChangeTrue", aceTemplate, [](auto& engine) { engine.Change(true); }, OpenEditor},
    {"StepDescription", aceEMSAutoTemplate, [](auto& engine) { engine.StepDescription(1); }},
    {"AddSubrange", aceTemplate, [](auto& engine) { engine.AddSubrange(1); }},
    {"AddTest", aceVKSTemplate, [](auto& engine) { engine.AddSubrange(3, Name); }},
    {"DeleteSubrange", aceTemplate, [](auto& engine) { engine.DeleteSubrange(1); }},
    {"DeleteTest", aceVKSTemplate, [](auto& engine) { engine.DeleteSubrange(1, FirstTest); }},
    {"MoveSubrange", aceTemplate, [](auto& engine) { engine.MoveSubrange(2, 1); }},
    {"SwapSubrange", aceTemplate, [](auto& engine) { engine.SwapSubrange(2, 1); }},
    {"AddVKSStep", aceVKSTemplate, [](auto& engine) { engine.AddVKSStep(Name, FirstTest, Name); }},
    {"VKSStepHaveActions", aceVKSTemplate,
     [](auto& engine) { engine.VKSStepHaveActions(FirstTest, FirstStep); }},
    {"SetVKSTests", aceVKSTemplate, AnnounceTests},
    {"AddVKSDUTFreq", aceVKSDUT, [](auto& engine) { engine.AddVKSDUTFreq(Name, 5e9); }},
    {"AddVKSDUTBandwidthID", aceVKSDUT,
     [](auto& engine) { engine.AddVKSDUTBandwidthID(Name, -1); }},
    {"AddVKSDUTPowerID", aceVKSDUT, [](auto& engine) { engine.AddVKSDUTPowerID(Name, -1); }},
    {"DeleteVKSDUTFreq", aceVKSDUT, [](auto& engine) { engine.DeleteVKSDUTFreq(2.4e9); },
     MakeTables},
    {"DeleteVKSDUTBandwidthID", aceVKSDUT, [](auto& engine) { engine.DeleteVKSDUTBandwidthID(0); },
     MakeTables},
    {"DeleteVKSDUTPowerID", aceVKSDUT, [](auto& engine) { engine.DeleteVKSDUTPowerID(0); },
     MakeTables},
    {"DeleteVKSDUTAll", aceVKSDUT, [](auto& engine) { engine.DeleteVKSDUTAll(); }, MakeTables},
    {"SetVKSDUTInfluence", aceVKSDUT, [](auto& engine) { engine.SetVKSDUTInfluence(0, 1, 1); },
     MakeTables},
    {"VKSDUTStepActionCount", aceVKSDUT, CountRowsActions},
    {"SetVKSReplaceVar", aceVKSDUT, SetPlaceholders},
    {"ForgetVKSReplaceVar", aceVKSDUT, [](auto& engine) { engine.SetVKSReplaceVar({}, {}, true); }},
    {"GetCheckEutAction", aceEMIAutoTemplate, TakeRequest, LeaveComment},
    {"AnotherEngine", aceTemplate, [](auto& engine) { aceActionsEngine(engine.State().Context); }},
};

/// Tracking outside `aceTemplate` ends the list of a frequency with error 13.
OperationRow RowOf(const MomentCall& moment) {
    const bool tracks = moment.time == ptEveryFreq && moment.moduleKind != aceTemplate;
    return {NameOf(moment), moment.moduleKind, moment.run, nullptr,
            tracks ? Errors::TypeMismatch : 0};
}
std::vector<OperationRow> AllMoments() {
    std::vector<OperationRow> rows;
    for (const MomentCall& moment : EveryMoment) {
        rows.push_back(RowOf(moment));
    }
    return rows;
}
/// Those that no action ends, so that each fails in its own way.
std::vector<OperationRow> MomentsWithoutBench() {
    std::vector<OperationRow> rows;
    for (const MomentCall& moment : EveryMoment) {
        if (moment.time == ptNoGo || moment.time == ptEveryFreq) {
            rows.push_back(RowOf(moment));
            rows.back().prepare = TakeBenchAway;
        }
    }
    return rows;
}

class OutOfMemoryTest : public ::testing::TestWithParam<OperationRow> {
  protected:
    /// Fails each allocation of the operation in turn; a sample of them by default.
    void Sweep(bool forEver) {
        Undisturbed();  // makes the texts that are made once
        const std::size_t count = Undisturbed();
        EXPECT_GE(count, 1U);
        Sample sample(30);
        for (std::size_t n = 1; n <= count; ++n) {
            if (n <= 3 || sample.Takes()) {
                FailAt(n, forEver);
            }
        }
    }

  private:
    /// Number of allocations of the operation.
    std::size_t Undisturbed() {
        Bench bench(file, GetParam());
        return AllocationsOf([&] { EXPECT_EQ(Run(*bench.engine), GetParam().error); });
    }
    void FailAt(std::size_t n, bool forEver) {
        Bench bench(file, GetParam());
        std::int32_t error = 0;
        bool wasHit = false;
        {
            const FailingAllocations failing(n, forEver);
            error = Run(*bench.engine);
            wasHit = failing.WasHit();
        }
        EXPECT_TRUE(wasHit) << "allocation " << n;
        EXPECT_THAT(error, ::testing::AnyOf(GetParam().error, Errors::OutOfMemory))
            << "allocation " << n;
        EXPECT_THAT(ListAgreement::BreachesWithKeys(bench.engine->State()), ::testing::IsEmpty())
            << "allocation " << n;
        EXPECT_EQ(Run(*bench.engine), GetParam().error) << "allocation " << n;
    }
    static std::int32_t Run(aceActionsEngine& engine) {
        return AnyErrorOf([&] { GetParam().call(engine); });
    }

    const sim::SimSections file = Filling(GetParam().moduleKind).file;
};

INSTANTIATE_TEST_SUITE_P(Operations, OutOfMemoryTest, ::testing::ValuesIn(Operations),
                         [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(Moments, OutOfMemoryTest, ::testing::ValuesIn(AllMoments()),
                         [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(WithoutBench, OutOfMemoryTest, ::testing::ValuesIn(MomentsWithoutBench()),
                         [](const auto& row) { return row.param.name; });

TEST_P(OutOfMemoryTest, AnAllocationThatFailsOnceIsError7OrPassedOver) {
    Sweep(false);
}

TEST_P(OutOfMemoryTest, OutOfMemoryForGoodIsError7OrPassedOver) {
    Sweep(true);
}

/// So that no kind before the wait is left out of the sweep.
TEST(OutOfMemoryMoments, WithMemoryEachComesToTheWaitOfItsList) {
    for (const OperationRow& moment : AllMoments()) {
        Bench bench(Filling(moment.moduleKind).file, moment);
        EXPECT_EQ(ErrorOf([&] { moment.call(*bench.engine); }), moment.error) << moment.name;
        EXPECT_GE(bench.host->lastWaits, 1U) << moment.name;
    }
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
    const auto host = std::make_shared<QuietHost>();
    std::int32_t error = Errors::OutOfMemory;
    std::size_t n = 0;
    for (; error != 0 && n < 100; ++n) {
        ThreadContext context(host);
        aceActionsEngine engine(context);
        engine.State().Modul = GetParam().moduleKind;
        {
            const FailingAllocations failing(n + 1, true);
            error = AnyErrorOf([&] { GetParam().call(engine); });
        }
        EXPECT_THAT(error, ::testing::AnyOf(0, Errors::OutOfMemory)) << "allocation " << n + 1;
        EXPECT_THAT(ListAgreement::BreachesWithKeys(engine.State()), ::testing::IsEmpty())
            << "allocation " << n + 1;
        EXPECT_EQ(AnyErrorOf([&] { GetParam().call(engine); }), 0) << "allocation " << n + 1;
    }
    EXPECT_GT(n, 1U) << "no allocation has failed";
    EXPECT_EQ(error, 0);
}

}  // namespace
}  // namespace ace::test
