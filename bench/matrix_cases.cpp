#include <memory>

#include <ace/core/actions_engine.h>
#include <ace/core/text.h>

#include "bench/cases.h"
#include "bench/quiet_host.h"

namespace ace::bench {

namespace {

/// Bandwidths and powers; the frequencies are as many or ten times so many.
constexpr std::int32_t Edge = 10;
constexpr std::int32_t FewFrequencies = 10;
constexpr std::int32_t ManyFrequencies = 100;

constexpr std::size_t RowsOf(std::int32_t frequencies) {
    return static_cast<std::size_t>(frequencies) * Edge * Edge;
}

/// An action in each list, so that a look-up which finds nothing answers otherwise.
void FillEach(DynArray<p_Subrange>& sets) {
    for (p_Subrange& set : sets) {
        set.Enter.Redim(0, 0);
        set.EnterCount = 1;
    }
}

/// A matrix in which every dimension counts, so that it has a row for each combination.
struct Matrix {
    explicit Matrix(std::int32_t frequencies) {
        engine.State().Modul = aceVKSDUT;
        for (std::int32_t i = 1; i <= frequencies; ++i) {
            engine.AddVKSDUTFreq(L"a frequency", 1e6 * i);
        }
        for (std::int32_t i = 0; i < Edge; ++i) {
            engine.AddVKSDUTBandwidthID(L"a bandwidth");
            engine.AddVKSDUTPowerID(L"a power");
        }
        engine.SetVKSDUTInfluence(1, 1, 1);
    }
    ThreadContext context{QuietHost()};
    aceActionsEngine engine{context};
};

Work Rename(std::int32_t frequencies) {
    return [matrix = std::make_shared<Matrix>(frequencies)] {
        matrix->engine.AddVKSDUTFreq(L"another name", 1e6);
    };
}

Work AddAndDeletePower(std::int32_t frequencies) {
    return [matrix = std::make_shared<Matrix>(frequencies)] {
        matrix->engine.AddVKSDUTPowerID(L"one more");
        matrix->engine.DeleteVKSDUTPowerID(Edge);
    };
}

Work DeleteAndAddPower(std::int32_t frequencies) {
    return [matrix = std::make_shared<Matrix>(frequencies)] {
        matrix->engine.DeleteVKSDUTPowerID(0);
        matrix->engine.AddVKSDUTPowerID(L"one more");
    };
}

Work AddAndDeleteFrequency(std::int32_t frequencies) {
    return [matrix = std::make_shared<Matrix>(frequencies)] {
        matrix->engine.AddVKSDUTFreq(L"one more", 0.5);
        matrix->engine.DeleteVKSDUTFreq(0.5);
    };
}

/// Every row goes and comes back.
Work InfluenceOffAndOn(std::int32_t frequencies) {
    return [matrix = std::make_shared<Matrix>(frequencies)] {
        matrix->engine.SetVKSDUTInfluence(0, 1, 1);
        matrix->engine.SetVKSDUTInfluence(1, 1, 1);
    };
}

Work Build(std::int32_t frequencies) {
    return [frequencies] { const Matrix matrix(frequencies); };
}

Work BuildAndDeleteAll(std::int32_t frequencies) {
    return [frequencies] {
        Matrix matrix(frequencies);
        matrix.engine.DeleteVKSDUTAll();
    };
}

/// As a run does it, for each row once.
Work LookUpRows(std::int32_t frequencies) {
    auto matrix = std::make_shared<Matrix>(frequencies);
    FillEach(matrix->engine.State().VKSSteps);
    return [matrix, frequencies] {
        std::int32_t found = 0;
        for (std::int32_t i = 1; i <= frequencies; ++i) {
            for (std::int32_t row = 0; row < Edge * Edge; ++row) {
                double frequency = 1e6 * i;
                std::int32_t bandwidth = row / Edge;
                std::int32_t power = row % Edge;
                found += matrix->engine.VKSDUTStepActionCount(frequency, bandwidth, power);
            }
        }
        Answered(static_cast<std::size_t>(found));
    };
}

// ---- steps of a wireless template --------------------------------------------------------------

/// Tests of a hundred steps each.
struct Template {
    explicit Template(std::int32_t tests) {
        engine.State().Modul = aceVKSTemplate;
        for (std::int32_t test = 0; test < tests; ++test) {
            for (std::int32_t step = 0; step < Edge * Edge; ++step) {
                engine.AddVKSStep(StepKey(step), TestKey(test), L"a step");
            }
        }
    }
    static String StepKey(std::int32_t step) { return L"{step " + IntegerText(step) + L"}"; }
    static String TestKey(std::int32_t test) { return L"{test " + IntegerText(test) + L"}"; }
    ThreadContext context{QuietHost()};
    aceActionsEngine engine{context};
};

Work LookUpSteps(std::int32_t tests) {
    auto steps = std::make_shared<Template>(tests);
    FillEach(steps->engine.State().VKSSteps);
    return [steps, tests] {
        std::size_t found = 0;
        for (std::int32_t test = 0; test < tests; ++test) {
            for (std::int32_t step = 0; step < Edge * Edge; ++step) {
                const bool hasActions = steps->engine.VKSStepHaveActions(Template::TestKey(test),
                                                                         Template::StepKey(step));
                found += hasActions ? 1U : 0U;
            }
        }
        Answered(found);
    };
}

Work AddSteps(std::int32_t tests) {
    return [tests] { const Template steps(tests); };
}

// ---- the cases -----------------------------------------------------------------------------

struct Operation {
    const char* name;
    Work (*work)(std::int32_t frequencies);
    double limit;
    std::size_t questions;  ///< whether to trace, of one run on the larger matrix
    Work (*aside)(std::int32_t) = nullptr;
    std::size_t found = 0;
};

constexpr std::size_t Many = RowsOf(ManyFrequencies);
/// Rows of a power, of a frequency, and of all frequencies together.
constexpr std::size_t OfAPower = Many / Edge;
constexpr std::size_t OfAFrequency = std::size_t{Edge} * Edge;
/// What a row asks when it is looked for and there, when it comes and when it goes.
constexpr std::size_t Found = 2;
constexpr std::size_t Comes = 4;
constexpr std::size_t Goes = 4;
/// An operation, the rebuild in it, and the first build of the matrix, where a rebuild before the
/// last one looks for the only row that there is yet.
constexpr std::size_t Outer = 2;
constexpr std::size_t Rebuild = 2;
constexpr std::size_t Built = (ManyFrequencies + 2 * Edge) * (Outer + Rebuild + Found) + 2 + Outer +
                              Rebuild + Goes + Comes * Many;

const Operation Operations[] = {
    {"a rebuild that changes nothing", Rename, 1.05, Outer + Rebuild + Found* Many},
    {"add and delete a frequency", AddAndDeleteFrequency, 1.5,
     2 * Outer + Rebuild + Found* Many + (Comes + Goes) * OfAFrequency},
    {"add and delete a power", AddAndDeletePower, 1.5,
     2 * Outer + Rebuild + Found* Many + (Comes + Goes) * OfAPower},
    {"delete the first power and add one", DeleteAndAddPower, 1.5,
     2 * Outer + Rebuild + Found*(Many - OfAPower) + (Comes + Goes) * OfAPower},
    {"influence of the frequency off and on", InfluenceOffAndOn, 1.5,
     2 * (Outer + Rebuild) + (Comes + Goes) * (Many + OfAFrequency)},
    {"delete all", BuildAndDeleteAll, 1.5,
     Built + Outer*(1 + 2 * Edge + ManyFrequencies) + Goes* Many, Build},
    {"look a row up", LookUpRows, 1.5, 0, nullptr, Many},
    {"look a step up", LookUpSteps, 1.5, 0, nullptr, Many},
    {"add a step", AddSteps, 1.5, Comes* Many},
};

Case Growing(const Operation& operation) {
    Case made{std::string(operation.name) + ", 10000 rows beside 1000",
              "row",
              Many,
              [work = operation.work] { return work(FewFrequencies); },
              [work = operation.work] { return work(ManyFrequencies); },
              {.instructions = operation.limit},
              RowsOf(FewFrequencies),
              {{Call::TraceQuestion, operation.questions}, {Call::Found, operation.found}}};
    if (operation.aside != nullptr) {
        made.aside = [work = operation.aside] { return work(ManyFrequencies); };
        made.floorAside = [work = operation.aside] { return work(FewFrequencies); };
    }
    return made;
}

}  // namespace

std::vector<Case> MatrixCases() {
    std::vector<Case> cases;
    for (const Operation& operation : Operations) {
        cases.push_back(Growing(operation));
    }
    return cases;
}

}  // namespace ace::bench
