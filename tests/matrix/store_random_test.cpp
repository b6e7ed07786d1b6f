#include "matrix/store_model_fixture.h"

namespace ace::test {
namespace {

using StoreRandomTest = StoreModelTest;

INSTANTIATE_TEST_SUITE_P(Modules, StoreRandomTest,
                         StoreRows(1, 25, aceTemplate, aceMonitoring, aceEMSAutoTemplate,
                                   aceEMIAutoTemplate, aceTSTemplate, aceVKSTemplate),
                         NameOfStoreRow);

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
