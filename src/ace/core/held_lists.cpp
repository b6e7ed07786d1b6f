#include <ace/core/action_lists.h>
#include <ace/core/held_lists.h>

namespace ace {

namespace {

template <class Array>
void RequireUnheld(const Array& array) {
    if (array.IsHeld()) {
        Raise(Errors::ArrayInUse);
    }
}

}  // namespace

void RequireFree(const p_Subrange& set) {
    for (const ListFields& list : ActionLists) {
        RequireUnheld(set.*list.actions);
    }
}

void RequireFree(const DynArray<p_Subrange>& sets) {
    RequireUnheld(sets);
}

void RequireFreeModule(const ModuleLists& lists, std::int32_t moduleKind) {
    const ModuleRow* module = FindModule(moduleKind);
    if (module == nullptr) {
        return;
    }
    for (const FixedSet& fixed : module->AllFixed()) {
        RequireFree(lists.*fixed.set);
    }
    for (const NumberedSets& numbered : module->AllNumbered()) {
        RequireFree(lists.*numbered.sets);
    }
}

}  // namespace ace
