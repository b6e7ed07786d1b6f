#include <span>

#include <ace/core/module_columns.h>

namespace ace {

namespace {

/// Copies one field.
using Column = void (*)(const ModuleLists& from, ModuleLists& to);

template <auto Field>
void Copy(const ModuleLists& from, ModuleLists& to) {
    to.*Field = from.*Field;
}

using L = ModuleLists;

constexpr Column Template[] = {Copy<&L::MainSubrangeCount>, Copy<&L::MainSubranges>,
                               Copy<&L::MainTest>};
constexpr Column Monitoring[] = {Copy<&L::MoniChannelCount>, Copy<&L::MoniChannels>,
                                 Copy<&L::MoniEut>, Copy<&L::MoniLoop>};
constexpr Column EmsGeneral[] = {Copy<&L::EMSAutoGeneral>};
constexpr Column EmsSteps[] = {Copy<&L::EMSAutoStepCount>, Copy<&L::EMSAutoSteps>};
constexpr Column EmiSteps[] = {Copy<&L::EMIAutoStepCount>, Copy<&L::EMIAutoSteps>,
                               Copy<&L::EMIAutoTest>};
constexpr Column Sequence[] = {Copy<&L::TSTestCount>, Copy<&L::TSTests>, Copy<&L::TSTest>};
constexpr Column Azimuth[] = {Copy<&L::AziChart>};

/// The editor shows tests in the host's order and steps under their test.
constexpr Column WirelessToEditor[] = {
    Copy<&L::VKSTestCount>, Copy<&L::VKSTests>,     Copy<&L::VKSTemplate>,  Copy<&L::VKSTestUKeys>,
    Copy<&L::VKSHostUKeys>, Copy<&L::VKSHostNames>, Copy<&L::VKSStepCount>, Copy<&L::VKSSteps>,
    Copy<&L::VKSStepNames>, Copy<&L::VKSStepUKeys>};
/// Intentional: keys and names don't come back, so that a test or step that the host added since
/// keeps its own beside the editor's counts and lists.
constexpr Column WirelessToStore[] = {Copy<&L::VKSTestCount>, Copy<&L::VKSTests>,
                                      Copy<&L::VKSTemplate>, Copy<&L::VKSStepCount>,
                                      Copy<&L::VKSSteps>};
/// Names of the steps go along, the steps themselves are not printed.
constexpr Column WirelessToPrint[] = {Copy<&L::VKSTestCount>, Copy<&L::VKSTests>,
                                      Copy<&L::VKSTemplate>,  Copy<&L::VKSStepUKeys>,
                                      Copy<&L::VKSStepNames>, Copy<&L::VKSStepKeys>};

constexpr Column Matrix[] = {Copy<&L::VKSStepCount>,
                             Copy<&L::VKSSteps>,
                             Copy<&L::VKSDUTIds>,
                             Copy<&L::VKSDUTFreqs>,
                             Copy<&L::VKSDUTFreqNames>,
                             Copy<&L::VKSDUTFreqCount>,
                             Copy<&L::VKSDUTBandwidthCount>,
                             Copy<&L::VKSDUTBandwidthNames>,
                             Copy<&L::VKSDUTPowerCount>,
                             Copy<&L::VKSDUTPowerNames>,
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
        CopyAll(Table[moduleKind].sets[static_cast<std::size_t>(purpose)], from, to);
    }
}

void CopyMatrix(const ModuleLists& from, ModuleLists& to) {
    CopyAll(Matrix, from, to);
}

}  // namespace ace
