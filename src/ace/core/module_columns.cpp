#include <array>
#include <cstring>
#include <span>
#include <tuple>
#include <utility>
#include <vector>

#include <ace/core/held_lists.h>
#include <ace/core/module_columns.h>
#include <ace/core/out_of_memory.h>

namespace ace {

namespace {

/// Copies one field.
using Column = void (*)(const ModuleLists& from, ModuleLists& to);

/// Whether a copy would change nothing; fields that a run has written count as all others do.
/// Intentional: both zeros are one number in a record, as in all that is compared or written.
template <class T>
bool AreAlike(const T& a, const T& b) {
    return a == b;
}

std::array<std::int32_t, 4> BoundsOf(const Array2D<double>& table) {
    return {table.RowLowerBound(), table.RowUpperBound(), table.ColumnLowerBound(),
            table.ColumnUpperBound()};
}

/// The keys of all rows at once: a copy copies bits, and to compare those is quicker.
bool AreAlike(const Array2D<double>& a, const Array2D<double>& b) {
    if (!a.IsAllocated() || !b.IsAllocated()) {
        return a.IsAllocated() == b.IsAllocated();
    }
    if (BoundsOf(a) != BoundsOf(b)) {
        return false;
    }
    const double* const first = a.Row(a.RowLowerBound());
    const double* const last = &a(a.RowUpperBound(), a.ColumnUpperBound());
    const auto bytes = static_cast<std::size_t>(last + 1 - first) * sizeof(double);
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): the bits are what a copy copies
    return std::memcmp(first, b.Row(b.RowLowerBound()), bytes) == 0;
}

/// What a field takes to become like another: nothing where it is so already, and everything in it
/// then stays where it is. The copy is made here, so that to bring it in needs no memory.
template <class T>
class Fresh {
  public:
    Fresh(const T& from, const T& to) : x_differs(!AreAlike(from, to)) {
        if (x_differs) {
            x_copy = from;
        }
    }
    void PutInto(T& to) {
        if (x_differs) {
            to = std::move(x_copy);
        }
    }

  private:
    bool x_differs;
    T x_copy{};
};

/// Sets by number: an edit hands all of them on and has changed one. Within the same bounds each is
/// looked at by itself.
template <>
class Fresh<DynArray<p_Subrange>> {
  public:
    using Sets = DynArray<p_Subrange>;

    Fresh(const Sets& from, const Sets& to) : x_isAnother(!HaveSameBounds(from, to)) {
        if (x_isAnother) {
            x_copy = from;
        } else if (from.IsAllocated()) {
            OrOutOfMemory([&] { TakeDifferent(from, to); });
        }
    }
    void PutInto(Sets& to) {
        if (x_isAnother) {
            to = std::move(x_copy);
        }
        for (auto& [index, set] : x_different) {
            to[index] = std::move(set);
        }
    }

  private:
    static bool HaveSameBounds(const Sets& a, const Sets& b) {
        return a.Size() == b.Size() && (!a.IsAllocated() || a.LowerBound() == b.LowerBound());
    }
    void TakeDifferent(const Sets& from, const Sets& to) {
        std::int32_t index = from.LowerBound();
        auto old = to.begin();
        for (const p_Subrange& set : from) {
            if (!AreAlike(set, *old)) {
                x_different.emplace_back(index, set);
            }
            ++index;
            ++old;
        }
    }

    bool x_isAnother;
    Sets x_copy;
    std::vector<std::pair<std::int32_t, p_Subrange>> x_different;
};

template <auto Field>
void Copy(const ModuleLists& from, ModuleLists& to) {
    Fresh(from.*Field, to.*Field).PutInto(to.*Field);
}

/// A count and the arrays that have an element for each. All copies are made first, so that the
/// count never stands before an array that could not be made, nor a row beside the key of another.
template <auto Count, auto... Arrays>
void CopyCounted(const ModuleLists& from, ModuleLists& to) {
    auto all = std::tuple(Fresh(from.*Arrays, to.*Arrays)...);
    to.*Count = from.*Count;
    std::apply([&](auto&... fresh) { (fresh.PutInto(to.*Arrays), ...); }, all);
}

using L = ModuleLists;

constexpr Column Template[] = {CopyCounted<&L::MainSubrangeCount, &L::MainSubranges>,
                               Copy<&L::MainTest>};
constexpr Column Monitoring[] = {CopyCounted<&L::MoniChannelCount, &L::MoniChannels>,
                                 Copy<&L::MoniEut>, Copy<&L::MoniLoop>};
constexpr Column EmsGeneral[] = {Copy<&L::EMSAutoGeneral>};
constexpr Column EmsSteps[] = {CopyCounted<&L::EMSAutoStepCount, &L::EMSAutoSteps>};
constexpr Column EmiSteps[] = {CopyCounted<&L::EMIAutoStepCount, &L::EMIAutoSteps>,
                               Copy<&L::EMIAutoTest>};
constexpr Column Sequence[] = {CopyCounted<&L::TSTestCount, &L::TSTests>, Copy<&L::TSTest>};
constexpr Column Azimuth[] = {Copy<&L::AziChart>};

/// The editor shows tests in the host's order and steps under their test.
constexpr Column WirelessToEditor[] = {CopyCounted<&L::VKSTestCount, &L::VKSTests>,
                                       Copy<&L::VKSTemplate>,
                                       Copy<&L::VKSTestUKeys>,
                                       Copy<&L::VKSHostUKeys>,
                                       Copy<&L::VKSHostNames>,
                                       CopyCounted<&L::VKSStepCount, &L::VKSSteps>,
                                       Copy<&L::VKSStepNames>,
                                       Copy<&L::VKSStepUKeys>};
/// Intentional: keys and names don't come back, so that a test or step that the host added since
/// keeps its own beside the editor's counts and lists.
constexpr Column WirelessToStore[] = {CopyCounted<&L::VKSTestCount, &L::VKSTests>,
                                      Copy<&L::VKSTemplate>,
                                      CopyCounted<&L::VKSStepCount, &L::VKSSteps>};
/// Names of the steps go along, the steps themselves are not printed.
constexpr Column WirelessToPrint[] = {CopyCounted<&L::VKSTestCount, &L::VKSTests>,
                                      Copy<&L::VKSTemplate>, Copy<&L::VKSStepUKeys>,
                                      Copy<&L::VKSStepNames>, Copy<&L::VKSStepKeys>};

constexpr Column Matrix[] = {CopyCounted<&L::VKSStepCount, &L::VKSSteps, &L::VKSDUTIds>,
                             CopyCounted<&L::VKSDUTFreqCount, &L::VKSDUTFreqs, &L::VKSDUTFreqNames>,
                             CopyCounted<&L::VKSDUTBandwidthCount, &L::VKSDUTBandwidthNames>,
                             CopyCounted<&L::VKSDUTPowerCount, &L::VKSDUTPowerNames>,
                             Copy<&L::VKSDUTTemplate>,
                             Copy<&L::VKSInfByFreq>,
                             Copy<&L::VKSInfByBandwidth>,
                             Copy<&L::VKSInfByPower>};
constexpr Column MatrixWithGlobal[] = {CopyMatrix, CopyMatrixGlobal};

using Columns = std::span<const Column>;

/// The columns of one module kind, by `CopyFor`.
struct ModuleColumns {
    Columns sets[3];
};
constexpr ModuleColumns Same(Columns all) {
    return {{all, all, all}};
}

/// Indexed by `aceModul`.
constexpr ModuleColumns Table[ModulCount] = {
    Same(Template),
    Same(Monitoring),
    Same(EmsGeneral),
    Same(EmsSteps),
    Same(EmiSteps),
    Same(Sequence),
    Same(Azimuth),
    {{WirelessToEditor, WirelessToStore, WirelessToPrint}},
    {{MatrixWithGlobal, MatrixWithGlobal, {}}},
};

void CopyAll(Columns columns, const ModuleLists& from, ModuleLists& to) {
    for (const Column copy : columns) {
        copy(from, to);
    }
}

}  // namespace

void CopyModule(std::int32_t moduleKind, CopyFor purpose, const ModuleLists& from,
                ModuleLists& to) {
    if (moduleKind >= 0 && moduleKind < ModulCount) {
        RequireFreeModule(to, moduleKind);
        CopyAll(Table[moduleKind].sets[static_cast<std::size_t>(purpose)], from, to);
    }
}

void CopyMatrix(const ModuleLists& from, ModuleLists& to) {
    RequireFree(to.VKSSteps);
    CopyAll(Matrix, from, to);
}

void CopyMatrixGlobal(const ModuleLists& from, ModuleLists& to) {
    RequireFree(to.VKSDUTGlob);
    Copy<&L::VKSDUTGlob>(from, to);
}

}  // namespace ace
