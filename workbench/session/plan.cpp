#include "workbench/session/plan.h"

#include <algorithm>

namespace ace::workbench {

namespace {

using Plan = std::vector<Moment>;

void Add(Plan& plan, MomentCall call, std::int32_t number = 0) {
    plan.push_back({.call = call, .number = number});
}

void AddFrequencies(Plan& plan, const std::optional<Sweep>& sweep, std::int32_t number) {
    if (!sweep) {
        return;
    }
    for (const double hertz : Frequencies(*sweep)) {
        plan.push_back({.call = MomentCall::NewFrequency,
                        .number = number,
                        .hertz = hertz,
                        .dwellMs = sweep->dwellMs});
    }
}

/// The numbers from 1 to that of the entries.
template <class Act>
void ForEachEntry(const TestSetUp& setUp, Act&& act) {
    for (std::int32_t number = 1; number <= setUp.subRanges; ++number) {
        act(number);
    }
}

const std::optional<Sweep>& SweepOfEntry(const TestSetUp& setUp, std::int32_t number) {
    return setUp.sweeps[static_cast<std::size_t>(number - 1)];
}

void PlanTemplate(const TestSetUp& setUp, Plan& plan) {
    ForEachEntry(setUp, [&](std::int32_t number) {
        Add(plan, MomentCall::EnterSubrange, number);
        AddFrequencies(plan, SweepOfEntry(setUp, number), number);
        Add(plan, MomentCall::LeaveSubrange, number);
    });
}

void AddChannelEvents(const TestSetUp& setUp, Plan& plan, std::int32_t step) {
    static constexpr struct {
        MomentCall call;
        std::vector<std::int32_t> ChannelEvents::*steps;
    } Kinds[] = {{MomentCall::Trigger, &ChannelEvents::trigger},
                 {MomentCall::EnterNoGo, &ChannelEvents::noGo},
                 {MomentCall::Go, &ChannelEvents::go}};
    for (std::size_t i = 0; i < setUp.channels.size(); ++i) {
        const ChannelEvents& channel = setUp.channels[i];
        for (const auto& kind : Kinds) {
            if (std::ranges::find(channel.*kind.steps, step) != (channel.*kind.steps).end()) {
                plan.push_back({.call = kind.call,
                                .number = static_cast<std::int32_t>(i + 1),
                                .name = channel.name});
            }
        }
    }
}

void PlanAllSweeps(const TestSetUp& setUp, Plan& plan) {
    std::int32_t number = 0;
    for (const std::optional<Sweep>& sweep : setUp.sweeps) {
        AddFrequencies(plan, sweep, ++number);
    }
}

void PlanMonitoring(const TestSetUp& setUp, Plan& plan) {
    Add(plan, MomentCall::BeforeTestLoop);
    Plan frequencies;
    PlanAllSweeps(setUp, frequencies);
    std::int32_t step = 0;
    for (const Moment& frequency : frequencies) {
        plan.push_back(frequency);
        AddChannelEvents(setUp, plan, ++step);
        Add(plan, MomentCall::AfterStep, step);
    }
    Add(plan, MomentCall::AfterTestLoop);
}

/// The general lists and those of the steps belong to two engine objects.
void PlanSusceptibility(const TestSetUp& setUp, Plan& plan) {
    if (setUp.subRanges == 0) {
        PlanAllSweeps(setUp, plan);
    }
    ForEachEntry(setUp, [&](std::int32_t number) {
        plan.push_back({.call = MomentCall::EnterStep, .number = number, .ofSteps = true});
        AddFrequencies(plan, SweepOfEntry(setUp, number), number);
    });
}

void PlanSusceptibilitySteps(const TestSetUp& setUp, Plan& plan) {
    ForEachEntry(setUp, [&](std::int32_t number) { Add(plan, MomentCall::EnterStep, number); });
}

void PlanEmission(const TestSetUp& setUp, Plan& plan) {
    if (setUp.subRanges == 0) {
        PlanAllSweeps(setUp, plan);
    }
    ForEachEntry(setUp, [&](std::int32_t number) {
        Add(plan, MomentCall::BeforeStep, number);
        AddFrequencies(plan, SweepOfEntry(setUp, number), number);
        Add(plan, MomentCall::AfterStep, number);
    });
}

void PlanSequence(const TestSetUp& setUp, Plan& plan) {
    ForEachEntry(setUp, [&](std::int32_t number) {
        Add(plan, MomentCall::BeforeTest, number);
        Add(plan, MomentCall::AfterTest, number);
    });
}

void PlanWirelessTests(const TestSetUp& setUp, Plan& plan) {
    for (const WirelessTest& test : setUp.tests) {
        plan.push_back({.call = MomentCall::BeforeVKSTest, .name = test.key});
        for (const WirelessStep& step : test.steps) {
            plan.push_back({.call = MomentCall::VKSStep,
                            .name = test.key,
                            .stepKey = step.key,
                            .stepName = step.name});
        }
        plan.push_back({.call = MomentCall::AfterVKSTest, .name = test.key});
    }
}

/// The lists for all rows run around the actions of each.
void AddRow(Plan& plan, const Moment& row) {
    for (const MomentCall call : {MomentCall::VKSDUTStepGlobBefore, MomentCall::VKSDUTStep,
                                  MomentCall::VKSDUTStepGlobAfter}) {
        plan.push_back(row);
        plan.back().call = call;
    }
}

void PlanMatrix(const TestSetUp& setUp, Plan& plan) {
    const Matrix& matrix = setUp.matrix;
    Moment row;
    for (const MatrixFrequency& frequency : matrix.frequencies) {
        row.hertz = frequency.hertz;
        for (std::size_t bandwidth = 0; bandwidth < matrix.bandwidths.size(); ++bandwidth) {
            row.bandwidth = static_cast<std::int32_t>(bandwidth);
            for (std::size_t power = 0; power < matrix.powers.size(); ++power) {
                row.power = static_cast<std::int32_t>(power);
                ++row.number;
                AddRow(plan, row);
            }
        }
    }
}

/// What stands between the start and the end of a test; indexed by `aceModul`.
constexpr void (*Planners[ModulCount])(const TestSetUp&, Plan&) = {
    PlanTemplate, PlanMonitoring, PlanSusceptibility, PlanSusceptibilitySteps,
    PlanEmission, PlanSequence,   PlanAllSweeps,      PlanWirelessTests,
    PlanMatrix,
};

}  // namespace

std::vector<Moment> PlanOf(const TestSetUp& setUp) {
    Plan plan;
    Add(plan, MomentCall::StartTest);
    Planners[setUp.moduleKind](setUp, plan);
    Add(plan, MomentCall::StopTest);
    return plan;
}

}  // namespace ace::workbench
