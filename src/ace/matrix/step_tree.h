/// The steps of the wireless tests.
#pragma once

#include <ace/core/engine_state.h>

namespace ace {

/// Index of the first step with this key that belongs to the test `testKey`, both to the letter; -1
/// for none. Error 9 where the keys are fewer than the steps.
std::int32_t FindStep(const EngineState& state, const String& testKey, const String& stepKey);

}  // namespace ace
