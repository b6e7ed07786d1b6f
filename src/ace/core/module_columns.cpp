#include <span>
#include <tuple>
#include <utility>

#include <ace/core/held_lists.h>
#include <ace/core/module_columns.h>

namespace ace {

namespace {

/// Copies one field.
using Column = void (*)(const ModuleLists& from, ModuleLists& to);

/// The copy is made first: without memory for it nothing changes.
template <auto Field>
void Copy(const ModuleLists& from, ModuleLists& to) {
    auto copy = from.*Field;
    to.*Field = std::move(copy);
}

/// A count and the arrays that have an element for each. All copies are made first, so that the
/// count never stands before an array that could not be made.
template <auto Count, auto... Arrays>
void CopyCounted(const ModuleLists& from, ModuleLists& to) {
    auto copies = std::tuple(from.*Arrays...);
    to.*Count = from.*Count;
    std::apply([&](auto&... copy) { ((to.*Arrays = std::move(copy)), ...); }, copies);
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
constexpr Column MatrixWithGlobal[] = {CopyMatrix, Copy<&L::VKSDUTGlob>};

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

}  // namespace ace
