/// Every allocation of every operation fails, once or from there on for good: what comes out is
/// error 7, counts and elements agree afterwards, and the same call succeeds when there is memory.
#include "support/allocation_counter.h"
#include "support/error_of.h"
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
        return AnyErrorOf([&] { GetParam().call(engine); });
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
