/// Every allocation of every operation of the editor fails, once or from there on for good: what
/// comes out is error 7, the lists of the editor and of the store are whole, as before the
/// operation or as behind it, and the same operation succeeds when there is memory.
#include <ace/core/actions_engine.h>
#include <ace/editor/edit_operations.h>
#include <ace/editor/frm_editor.h>

#include "support/allocation_counter.h"
#include "support/error_of.h"
#include "support/fixture.h"

namespace ace::test {
namespace {

using Actions = std::vector<p_Action>;

constexpr TreeNode Moment{1};
constexpr TreeNode Line{2};

/// A tree that shows the start of a test with its first line, and needs no memory for it.
class OneMomentTree final : public ITreeControl {
  public:
    TreeNode selected = Moment;

    void SetEvents(ITreeEvents*) override {}
    void Clear() override { x_lines = 0; }
    TreeNode AddRoot(const String&, const String&, const String&) override { return Moment; }
    TreeNode AddChild(TreeNode, const String&, const String&, const String&) override {
        ++x_lines;
        return Line;
    }
    TreeNode AddSibling(TreeNode, const String&, const String&, const String&) override {
        return Moment;
    }
    void Remove(TreeNode) override { --x_lines; }
    void SetRootsSorted(Boolean) override {}
    void SetChildrenSorted(TreeNode, Boolean) override {}
    TreeNode Find(const String& key) override { return key == L"ETE" ? Moment : TreeNode(); }
    String Key(TreeNode node) override { return node == Moment ? L"ETE" : L"CHI0ETE"; }
    String Caption(TreeNode) override { return {}; }
    String Image(TreeNode) override { return {}; }
    TreeNode Parent(TreeNode node) override { return node == Line ? Moment : TreeNode(); }
    TreeNode FirstRoot() override { return Moment; }
    TreeNode FirstChild(TreeNode) override { return x_lines > 0 ? Line : TreeNode(); }
    TreeNode NextSibling(TreeNode) override { return {}; }
    std::int32_t ChildCount(TreeNode) override { return x_lines; }
    std::vector<TreeNode> Nodes() override { return {}; }
    Boolean IsExpanded(TreeNode) override { return false; }
    void SetExpanded(TreeNode, Boolean) override {}
    TreeNode Selected() override { return selected; }
    void Select(TreeNode) override {}

  private:
    std::int32_t x_lines = 0;
};
class NoList final : public IListControl {
  public:
    void SetEvents(IListEvents*) override {}
    void Clear() override {}
    void Add(const String&, const String&, const String&) override {}
    std::optional<String> Selected() override { return std::nullopt; }
};

/// A message that needs memory of its own.
p_Action LongMessage(wchar_t letter) {
    aceNotify record;
    record.Message = String(40, letter);
    return Action(atNotify, record);
}
const Actions Before = {LongMessage(L'a'), LongMessage(L'b'), LongMessage(L'c')};

/// An editor that is open on three messages and holds a fourth.
struct Desk {
    explicit Desk(TreeNode selected) {
        engine.State().Modul = aceEMSAutoTemplateGeneral;
        Fill(engine.State().EMSAutoGeneral, EnterList, Before);
        engine.LoadEditor(&list, &tree);
        tree.selected = selected;
        Hold(Parts().held, LongMessage(L'd'));
        Fill(earlier.EMSAutoGeneral, EnterList, {LongMessage(L'd')});
    }
    EditorParts& Parts() { return std::dynamic_pointer_cast<frmEditor>(context.Editor)->Parts(); }

    OneMomentTree tree;  // the controls outlive the editor, which gives them back when it goes
    NoList list;
    ThreadContext context;
    aceActionsEngine engine{context};
    ModuleLists earlier;  ///< with the fourth message alone
};

struct MemoryRow {
    const char* name;
    TreeNode selected;
    void (*act)(Desk& desk);
    Actions after;
};
void PrintTo(const MemoryRow& row, std::ostream* out) {
    *out << row.name;
}

const MemoryRow MemoryRows[] = {
    {"AddAction",
     Moment,
     [](Desk& desk) { AddAction(desk.Parts(), true); },
     {Before[0], Before[1], Before[2], LongMessage(L'd')}},
    {"AddActionBehindALine",
     Line,
     [](Desk& desk) { AddAction(desk.Parts(), false); },
     {Before[0], LongMessage(L'd'), Before[1], Before[2]}},
    {"ModifyAction",
     Line,
     [](Desk& desk) { ModifyAction(desk.Parts()); },
     {LongMessage(L'd'), Before[1], Before[2]}},
    {"DeleteLine", Line, [](Desk& desk) { DeleteAction(desk.Parts()); }, {Before[1], Before[2]}},
    {"ClearMoment", Moment, [](Desk& desk) { DeleteAction(desk.Parts()); }, {}},
    {"MoveAction",
     Moment,
     [](Desk& desk) { MoveAction(desk.Parts(), ptStartTest, 0, 0, 2); },
     {Before[1], Before[2], Before[0]}},
    {"GetAction", Line, [](Desk& desk) { GetAction(desk.Parts()); }, Before},
    {"TakeLists",
     Moment,
     [](Desk& desk) { desk.context.Editor->TakeLists(desk.earlier); },
     {LongMessage(L'd')}},
    {"LoadEditor", Moment, [](Desk& desk) { desk.engine.LoadEditor(&desk.list, &desk.tree); },
     Before},
};

/// The counted entries, which must be those before the operation or those behind it. A spare
/// element behind them is allowed in the editor.
void ExpectWhole(const p_Subrange& set, const Actions& after, std::size_t spare) {
    Actions counted;
    for (std::int32_t i = 0; i < set.EnterCount; ++i) {
        counted.push_back(set.Enter[i]);
    }
    EXPECT_TRUE(counted == Before || counted == after);
    EXPECT_LE(set.Enter.Size(), counted.size() + spare);
}

class EditMemory : public ::testing::TestWithParam<MemoryRow> {
  protected:
    /// False when the operation makes no such allocation.
    static bool FailAllocation(const MemoryRow& row, std::size_t n, bool forEver) {
        Desk desk(row.selected);
        std::int32_t error = 0;
        bool wasHit = false;
        {
            const FailingAllocations out(n, forEver);
            error = AnyErrorOf([&] { row.act(desk); });
            wasHit = out.WasHit();
        }
        EXPECT_TRUE(error == Errors::OutOfMemory || (error == 0 && (!wasHit || !forEver)))
            << error << " at " << n;
        ExpectWhole(desk.Parts().lists.EMSAutoGeneral, row.after, 1);
        ExpectWhole(desk.engine.State().EMSAutoGeneral, row.after, 0);
        desk.engine.LoadEditor(&desk.list, &desk.tree);
        EXPECT_EQ(AnyErrorOf([&] { row.act(desk); }), 0) << "again, behind " << n;
        return wasHit;
    }
};

TEST_P(EditMemory, AnyAllocationThatFailsLeavesWholeLists) {
    for (const bool forEver : {false, true}) {
        std::size_t n = 1;
        while (FailAllocation(GetParam(), n, forEver)) {
            ++n;
        }
        EXPECT_GT(n, 1U) << "the operation allocates";
    }
}
INSTANTIATE_TEST_SUITE_P(Operations, EditMemory, ::testing::ValuesIn(MemoryRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace ace::test
