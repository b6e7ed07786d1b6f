#include "bench/cases.h"

namespace ace::bench {

std::function<Work()> PieceOf(const Case& one, const std::string& name) {
    const std::function<Work()>* const pieces[] = {&one.floor, &one.ours, &one.aside,
                                                   &one.floorAside};
    for (std::size_t i = 0; i < std::size(Pieces); ++i) {
        if (name == Pieces[i]) {
            return *pieces[i];
        }
    }
    return nullptr;
}

std::vector<Case> AllCases() {
    std::vector<Case> all = WalkCases();
    for (const auto& more :
         {KindCases(), MixCases(), SectionCases(), DocumentCases(), FileCases(), StoreCases(),
          HandBackCases(), MatrixCases(), EditorCases(), CheckCases()}) {
        all.insert(all.end(), more.begin(), more.end());
    }
    return all;
}

}  // namespace ace::bench
