#include "matrix/store_model_fixture.h"

namespace ace::test {
namespace {

class StoreRandomTest : public StoreModelTest, public ::testing::WithParamInterface<aceModul> {
  protected:
    StoreRandomTest() : StoreModelTest(GetParam()) {}
};

INSTANTIATE_TEST_SUITE_P(Modules, StoreRandomTest,
                         ::testing::Values(aceTemplate, aceMonitoring, aceEMSAutoTemplate,
                                           aceEMIAutoTemplate, aceTSTemplate, aceVKSTemplate),
                         [](const auto& row) { return "Modul" + std::to_string(row.param); });

TEST_P(StoreRandomTest, OperationsFromANewObjectOnFollowTheModel) {
    Run(800);
}

TEST_P(StoreRandomTest, OperationsAfterLoadsFollowTheModel) {
    for (int round = 0; round < 15 && !HasFailure(); ++round) {
        Load(Draw(0, 8));
        Compare();
        Run(60);
    }
}

}  // namespace
}  // namespace ace::test
