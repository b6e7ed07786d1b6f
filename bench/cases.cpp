#include "bench/cases.h"

namespace ace::bench {

std::vector<Case> AllCases() {
    std::vector<Case> all = WalkCases();
    for (const auto& more :
         {MixCases(), SectionCases(), DocumentCases(), StoreCases(), MatrixCases()}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

}  // namespace ace::bench
