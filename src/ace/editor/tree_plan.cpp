#include <span>
#include <unordered_map>
#include <vector>

#include <ace/core/text.h>
#include <ace/editor/tree_plan.h>

namespace ace {

namespace {

/// How a caption tells the number of its node.
enum class Numbering : std::uint8_t {
    None,
    Behind,   ///< the text, a blank, the number from 1
    Joined,   ///< the same without the blank
    OfTexts,  ///< the text whose number is so many higher
};
/// When a node begins expanded.
enum class Expands : std::uint8_t { Never, Always, WithEnter };

struct NodeRow {
    StringView key;
    std::int32_t caption;
    StringView parent = {};
    Numbering numbering = Numbering::None;
    Expands expands = Expands::Never;
};

/// A module: nodes that it has once, then those of each numbered set, then the last roots.
struct ModulePlan {
    std::span<const NodeRow> first = {};
    std::span<const NodeRow> ofEach = {};
    std::span<const NodeRow> last = {};
};

/// Before and after a test of a sequence or of a wireless template.
constexpr std::int32_t BeforeTestText = 9094;
constexpr std::int32_t AfterTestText = 9095;

/// Of single tests and emission tests.
constexpr NodeRow TestFirst[] = {{L"ETE", 9051}, {L"EFR", 9052}};
constexpr NodeRow TemplateEach[] = {
    {L"SUR", 9053, {}, Numbering::Behind}, {L"ESR", 9054, L"SUR"}, {L"LSR", 9055, L"SUR"}};
constexpr NodeRow TestLast[] = {{L"LTE", 9056}};

constexpr NodeRow MonitoringFirst[] = {
    {L"ETE", 9051}, {L"EFR", 9052}, {L"ATL", 9104}, {L"BFT", 9098, L"ATL"}, {L"ATT", 9099, L"ATL"}};
constexpr NodeRow MonitoringEach[] = {{L"CHA", 21000, {}, Numbering::Behind},
                                      {L"TRI", 9075, L"CHA"},
                                      {L"NGO", 9057, L"CHA"},
                                      {L"GOE", 9076, L"CHA"}};
constexpr NodeRow MonitoringLast[] = {{L"MLC", 9087}, {L"LTE", 9056}};

constexpr NodeRow GeneralFirst[] = {{L"ETE", 9051, {}, Numbering::None, Expands::Always}};
constexpr NodeRow GeneralLast[] = {{L"LTE", 9056, {}, Numbering::None, Expands::Always}};

constexpr NodeRow EmsSteps[] = {{L"STE", 9058, {}, Numbering::Behind, Expands::Always}};

/// Intentional: what comes after a step is expanded by what comes before it.
constexpr NodeRow EmiEach[] = {{L"EMI", 9080, {}, Numbering::OfTexts},
                               {L"BEF", 9090, L"EMI", Numbering::None, Expands::WithEnter},
                               {L"AFT", 9091, L"EMI", Numbering::None, Expands::WithEnter}};

/// Of sequences and wireless templates.
constexpr NodeRow TestsFirst[] = {{L"ETE", 9092}};
constexpr NodeRow SequenceEach[] = {
    {L"TST", 9101, {}, Numbering::Joined},
    {L"BFT", BeforeTestText, L"TST", Numbering::None, Expands::WithEnter},
    {L"ATT", AfterTestText, L"TST", Numbering::None, Expands::WithEnter}};
constexpr NodeRow TestsLast[] = {{L"LTE", 9093}};

constexpr NodeRow AzimuthFirst[] = {{L"ETE", 9096}, {L"EFR", 9103}};
constexpr NodeRow AzimuthLast[] = {{L"LTE", 9097}};

/// Indexed by `aceModul`; the wireless template has a walk of its own between its ends.
constexpr ModulePlan Plans[ModulCount] = {
    {TestFirst, TemplateEach, TestLast},
    {MonitoringFirst, MonitoringEach, MonitoringLast},
    {GeneralFirst, {}, GeneralLast},
    {{}, EmsSteps, {}},
    {TestFirst, EmiEach, TestLast},
    {TestsFirst, SequenceEach, TestsLast},
    {AzimuthFirst, {}, AzimuthLast},
    {TestsFirst, {}, TestsLast},
    {},
};

NodeCaption CaptionOf(const NodeRow& row, std::int32_t number) {
    switch (row.numbering) {
        case Numbering::Behind:
            return {row.caption, L' ' + IntegerText(number + 1)};
        case Numbering::Joined:
            return {row.caption, IntegerText(number + 1)};
        case Numbering::OfTexts:
            return {row.caption + number, {}};
        case Numbering::None:
            break;
    }
    return {row.caption, {}};
}

String Joined(StringView letters, StringView digits) {
    String key(letters);
    key += digits;
    return key;
}

/// The moment of a node; none for a group.
const MomentRow* MomentOf(aceModul moduleKind, StringView key) {
    const std::optional<p_PerformTimes> time = TimeOfKey(key);
    return time ? FindMoment(moduleKind, *time) : nullptr;
}

/// Intentional: the bounds of the list count, not the number beside it.
bool IsExpanded(const ModuleLists& lists, const NodeRow& row, const MomentRow* moment,
                std::int32_t number) {
    if (row.expands == Expands::WithEnter) {
        return (lists.*moment->numbered->sets)[number].Enter.IsAllocated();
    }
    return row.expands == Expands::Always;
}

void AddOnce(const ModuleLists& lists, aceModul moduleKind, std::span<const NodeRow> rows,
             bool isSibling, const NodeSink& add) {
    for (const NodeRow& row : rows) {
        const MomentRow* const moment = MomentOf(moduleKind, row.key);
        add({.key = String(row.key),
             .parent = String(row.parent),
             .caption = CaptionOf(row, 0),
             .isSibling = isSibling,
             .moment = moment,
             .isExpanded = IsExpanded(lists, row, moment, 0)});
    }
}

void AddNumbered(const ModuleLists& lists, aceModul moduleKind, std::span<const NodeRow> rows,
                 std::int32_t number, const NodeSink& add) {
    const String digits = IntegerText(number);
    for (const NodeRow& row : rows) {
        const MomentRow* const moment = MomentOf(moduleKind, row.key);
        add({.key = Joined(row.key, digits),
             .parent = row.parent.empty() ? String() : Joined(row.parent, digits),
             .caption = CaptionOf(row, number),
             .moment = moment,
             .number = number,
             .isExpanded = IsExpanded(lists, row, moment, number)});
    }
}

// ---- wireless tests ------------------------------------------------------------------------

using Places = std::unordered_map<StringView, std::vector<std::int32_t>>;

/// The places of each key among the first `count` keys.
Places PlacesOf(const DynArray<String>& keys, std::int32_t count) {
    Places places;
    for (std::int32_t i = 0; i < count; ++i) {
        places[keys[i]].push_back(i);
    }
    return places;
}

PlannedNode WirelessNode(StringView letters, std::int32_t number, String parent,
                         NodeCaption caption) {
    return {.key = Joined(letters, IntegerText(number)),
            .parent = std::move(parent),
            .caption = std::move(caption),
            .moment = MomentOf(aceVKSTemplate, letters),
            .number = number};
}

void AddWirelessStep(const ModuleLists& lists, std::int32_t step, const String& parent,
                     const NodeSink& add) {
    PlannedNode node = WirelessNode(L"STE", step, parent, {0, lists.VKSStepNames[step]});
    node.isExpanded = lists.VKSSteps[step].Enter.IsAllocated();
    add(node);
}

/// `test` is the place under which the lists are kept, `shown` the place in the host's order.
void AddWirelessTest(const ModuleLists& lists, std::int32_t test, std::int32_t shown,
                     std::span<const std::int32_t> steps, const NodeSink& add) {
    const PlannedNode group = WirelessNode(L"TST", test, {}, {0, lists.VKSHostNames[shown]});
    add(group);
    const p_Subrange& set = lists.VKSTests[test];
    PlannedNode before = WirelessNode(L"BFT", test, group.key, {BeforeTestText, {}});
    before.isExpanded = set.Enter.IsAllocated();
    add(before);
    for (const std::int32_t step : steps) {
        AddWirelessStep(lists, step, group.key, add);
    }
    PlannedNode after = WirelessNode(L"ATT", test, group.key, {AfterTestText, {}});
    after.isExpanded = set.Leave.IsAllocated();
    add(after);
}

/// The first test of a key counts; an empty key is that of no test.
void AddWirelessTests(const ModuleLists& lists, const NodeSink& add) {
    const Places tests = PlacesOf(lists.VKSTestUKeys, lists.VKSTestCount);
    const Places steps = PlacesOf(lists.VKSStepUKeys, lists.VKSStepCount);
    for (std::int32_t shown = 0; shown < lists.VKSTestCount; ++shown) {
        const String& key = lists.VKSHostUKeys[shown];
        const auto test = tests.find(key);
        if (key.empty() || test == tests.end()) {
            continue;
        }
        const auto ofTest = steps.find(key);
        AddWirelessTest(lists, test->second.front(), shown,
                        ofTest != steps.end() ? std::span<const std::int32_t>(ofTest->second)
                                              : std::span<const std::int32_t>(),
                        add);
    }
}

}  // namespace

void PlanTree(const ModuleLists& lists, aceModul moduleKind, const NodeSink& add) {
    const ModuleRow* const module = FindModule(moduleKind);
    if (module == nullptr) {
        return;
    }
    const ModulePlan& plan = Plans[moduleKind];
    AddOnce(lists, moduleKind, plan.first, false, add);
    if (!plan.ofEach.empty()) {
        const std::int32_t count = lists.*module->numbered[0].count;
        for (std::int32_t i = 0; i < count; ++i) {
            AddNumbered(lists, moduleKind, plan.ofEach, i, add);
        }
    }
    if (moduleKind == aceVKSTemplate) {
        AddWirelessTests(lists, add);
    }
    AddOnce(lists, moduleKind, plan.last, true, add);
}

}  // namespace ace
