/// Whether lists may be replaced: asked before anything is changed, so that a call which ends with
/// error 10 has changed nothing and can be made again later.
#pragma once

#include <ace/core/module_table.h>

namespace ace {

/// Error 10 while one of the set's lists runs.
void RequireFree(const p_Subrange& set);
/// Error 10 while a list of one of the sets runs: their elements must stay where they are.
void RequireFree(const DynArray<p_Subrange>& sets);
/// Error 10 while any list of the module kind runs. Nothing for a kind outside the members.
void RequireFreeModule(const ModuleLists& lists, std::int32_t moduleKind);

}  // namespace ace
