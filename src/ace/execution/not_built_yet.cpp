/// Everything of the public interface that this version does not carry yet.
#include <ace/core/actions_engine.h>
#include <ace/core/not_built_yet.h>

namespace ace {

void aceActionsEngine::PrintStrings(aceModul, _aceActionsEngine&, Array2D<String>&, std::int32_t) {
    RaiseNotBuiltYet(L"PrintStrings");
}

}  // namespace ace
