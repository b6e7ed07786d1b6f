#include <memory>

#include <ace/core/module_columns.h>

#include "bench/cases.h"
#include "bench/mix.h"

namespace ace::bench {

namespace {

constexpr std::int32_t Size = 10000;

/// The lists of a module as an editor holds them, and as the store does.
struct Lists {
    ModuleLists editor;
    ModuleLists store;
};
using Fill = void (*)(ModuleLists& lists);

void FillEmptySteps(ModuleLists& lists) {
    lists.EMSAutoStepCount = Size;
    lists.EMSAutoSteps.Redim(0, Size);
}

/// One action each, of the kinds of the mix in turn.
void FillSteps(ModuleLists& lists) {
    FillEmptySteps(lists);
    std::int32_t index = 0;
    for (p_Subrange& step : lists.EMSAutoSteps) {
        step.EnterCount = 1;
        step.Enter.Redim(0, 0);
        step.Enter[0] = MixedAction(index++);
    }
}

void FillRows(ModuleLists& lists) {
    lists.VKSStepCount = Size;
    lists.VKSSteps.Redim(0, Size);
    lists.VKSDUTIds.Redim(0, Size, 0, 2);
    for (std::int32_t row = 0; row < Size; ++row) {
        lists.VKSDUTIds(row, 0) = 1e6 * row;
    }
}

struct HandBack {
    const char* name;
    const char* unit;
    aceModul moduleKind;
    DynArray<p_Subrange> ModuleLists::*sets;
    Fill fill;
    Limits limits;
};

/// Most instructions for an element whose lists are empty on both sides.
constexpr double MostForNothing = 60;

constexpr HandBack HandBacks[] = {
    {"hand 10000 steps without actions to the store",
     "step",
     aceEMSAutoTemplate,
     &ModuleLists::EMSAutoSteps,
     FillEmptySteps,
     {.gate = MostForNothing}},
    {"hand 10000 steps with an action to the store",
     "step",
     aceEMSAutoTemplate,
     &ModuleLists::EMSAutoSteps,
     FillSteps,
     {.instructions = 1.05}},
    {"hand a matrix of 10000 rows without actions to the store",
     "row",
     aceVKSDUT,
     &ModuleLists::VKSSteps,
     FillRows,
     {.gate = MostForNothing}},
};

std::shared_ptr<Lists> Make(const HandBack& one) {
    auto lists = std::make_shared<Lists>();
    one.fill(lists->editor);
    lists->store = lists->editor;
    return lists;
}

/// The bare comparison of all elements.
Work Compare(const HandBack& one) {
    return [lists = Make(one), sets = one.sets] {
        Answered(lists->editor.*sets == lists->store.*sets ? 1 : 0);
    };
}

/// An action comes in the middle and goes again, and each time has to arrive.
Work EditTwice(const HandBack& one) {
    return [lists = Make(one), sets = one.sets, moduleKind = one.moduleKind] {
        for (const std::int32_t count : {1, 0}) {
            p_Subrange& edited = (lists->editor.*sets)[Size / 2];
            edited.LeaveCount = count;
            edited.Leave = DynArray<p_Action>();
            if (count > 0) {
                edited.Leave.Redim(0, count - 1);
            }
            CopyModule(moduleKind, CopyFor::Store, lists->editor, lists->store);
            Answered((lists->store.*sets)[Size / 2] == edited ? 1 : 0);
        }
    };
}

}  // namespace

std::vector<Case> HandBackCases() {
    std::vector<Case> cases;
    for (const HandBack& one : HandBacks) {
        cases.push_back({one.name,
                         one.unit,
                         2 * std::size_t{Size},
                         [&one] { return Compare(one); },
                         [&one] { return EditTwice(one); },
                         one.limits,
                         Size,
                         {{Call::Found, 2}}});
    }
    return cases;
}

}  // namespace ace::bench
