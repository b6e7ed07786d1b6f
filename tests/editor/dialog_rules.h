/// Which kinds and lines the moments take, as tables of the plain model. It calls nothing of the
/// engine.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "editor/edit_model.h"

namespace ace::test {

/// Where something is added or dropped: a node, and the captions to which its own is compared.
struct ModelTarget {
    std::wstring key;
    std::wstring caption;
    std::optional<std::wstring> frequency;  ///< caption of EFR
    std::optional<std::wstring> start;      ///< of ETE
    std::optional<std::wstring> stop;       ///< of LTE

    bool IsFrequency() const { return caption == frequency; }
    bool IsStart() const { return caption == start; }
    bool IsEnd() const { return caption == start || caption == stop; }
    bool Begins(const wchar_t* letters) const { return key.substr(0, 3) == letters; }
};

template <class One>
bool IsAmong(const One& one, const std::vector<One>& several) {
    return std::ranges::find(several, one) != several.end();
}

/// A double click on the palette.
inline bool ModelAdds(int kind, const ModelTarget& target) {
    if (target.IsFrequency()) {
        return IsAmong(kind, {5, 3, 4});
    }
    return kind != 5 && !(target.IsEnd() && IsAmong(kind, {6, 10, 8, 9, 11}));
}

/// Which kinds of the palette can't be dropped there.
inline std::vector<int> ModelRefusedKinds(int module, const ModelTarget& target) {
    switch (module) {
        case 0:
            return target.IsFrequency() ? std::vector{1, 6, 7, 8, 9, 10, 11, 12, 13, 15, 16, 17}
                   : target.IsEnd()     ? std::vector{5, 9, 11, 8, 10, 6}
                                        : std::vector{5};
        case 1:
            if (target.Begins(L"GOE") || target.Begins(L"TRI")) {
                return {10, 9, 8, 11, 6};
            }
            return target.Begins(L"NGO")   ? std::vector{15, 4}
                   : target.Begins(L"MLC") ? std::vector{8, 10, 9, 11, 6, 4}
                                           : std::vector<int>();
        case 4:
        case 6:
            return target.IsStart() ? std::vector{15} : std::vector<int>();
        case 7:
            return target.Begins(L"STE") ? std::vector<int>() : std::vector{16, 17};
        default:
            return {};
    }
}

/// A line with this icon can't be dropped there.
inline bool ModelRefusesLine(int module, const std::wstring& icon, const ModelTarget& target) {
    switch (module) {
        case 0:
        case 1:
        case 3:
            return target.IsFrequency()
                       ? !IsAmong<std::wstring>(icon, {L"TRC", L"DEV", L"EUT"})
                       : target.IsEnd() &&
                             IsAmong<std::wstring>(icon, {L"MSG", L"STP", L"STL", L"SGL", L"NBB"});
        case 7:
            return !target.Begins(L"STE") && IsAmong<std::wstring>(icon, {L"QUE", L"MON"});
        default:
            return false;
    }
}

/// Icons by kind.
inline constexpr const wchar_t* ModelIcons[ModelKinds] = {
    L"WAI", L"NOT", L"REM", L"DEV", L"EUT", L"TRC", L"MSG", L"REC", L"STP",
    L"SGL", L"STL", L"NBB", L"SWA", L"SWU", L"API", L"PAC", L"QUE", L"MON"};

/// The kinds that the palette of a module offers; `isEmission` of a template.
inline std::vector<int> ModelPalette(int module, bool isEmission) {
    const std::vector<int> ofModule[9] = {{4, 12, 13}, {4, 6, 13, 11, 9, 10, 8}, {13, 15},
                                          {13},        {4, 7, 13, 15},           {4, 12, 13},
                                          {7, 13, 15}, {13, 4, 16, 17},          {13, 4}};
    std::vector<int> kinds{3, 2, 0, 1, 14};
    const std::vector<int> more =
        module == 0 && isEmission ? std::vector{4, 5, 7, 13} : ofModule[module];
    kinds.insert(kinds.end(), more.begin(), more.end());
    return kinds;
}

}  // namespace ace::test
