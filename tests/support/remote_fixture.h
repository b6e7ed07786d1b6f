/// A context as the first engine of a thread leaves it, for tests of the routines below it.
#pragma once

#include <ace/core/ports.h>

#include "support/fixture.h"

namespace ace::test {

/// Status line, its labels and a serial form are there; forms show in the journal by name alone.
class RoutineTest : public HostTest {
  protected:
    RoutineTest();
    ~RoutineTest() override;

    /// The effects in order; a shown form by its name, its hiding left out.
    std::vector<String> TakeCalls();

    Boolean ignoreAll;
};

}  // namespace ace::test
