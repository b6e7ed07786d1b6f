#include "workbench/cli/tree_command.h"

#include <sstream>

#include <ace/core/operation.h>
#include <ace/editor/places.h>
#include <ace/editor/tree_plan.h>

#include "sim/sim_list.h"
#include "sim/sim_tree.h"
#include "workbench/cli/console_report.h"
#include "workbench/files/text_encoding.h"
#include "workbench/session/loaded_engines.h"
#include "workbench/session/session_host.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// A node as it is printed.
struct Row {
    std::size_t depth;
    String caption;
    String icon;
    bool isAction;
    std::size_t actions = 0;  ///< below it, in any depth
};

/// A node whose children are being walked.
struct OpenNode {
    TreeNode node;
    std::size_t row;
};

Row RowOf(ITreeControl& tree, TreeNode node, std::size_t depth) {
    return {depth, tree.Caption(node), tree.Image(node), IsLineKey(tree.Key(node))};
}

void AppendRows(ITreeControl& tree, std::vector<Row>& rows) {
    std::vector<OpenNode> open;
    TreeNode node = tree.FirstRoot();
    while (node || !open.empty()) {
        if (!node) {
            node = tree.NextSibling(open.back().node);
            open.pop_back();
            continue;
        }
        rows.push_back(RowOf(tree, node, open.size()));
        for (const OpenNode& above : open) {
            rows[above.row].actions += rows.back().isAction ? 1U : 0U;
        }
        open.push_back({node, rows.size() - 1});
        node = tree.FirstChild(node);
    }
}

/// "[WAI] " for an action, by its icon; "* " for a moment and what holds moments, "+ " for a group
/// of a matrix.
String MarkOf(const Row& row) {
    if (row.isAction) {
        return L"[" + row.icon + L"] ";
    }
    return row.icon == MomentIcon ? L"* " : L"+ ";
}

String LineOf(const Row& row) {
    constexpr std::size_t Indentation = 2;
    String line = String(row.depth * Indentation, L' ') + MarkOf(row) + OneLine(row.caption);
    if (row.isAction) {
        return line;
    }
    return line + L": " +
           (row.actions == 0 ? String(L"no actions") : Counted(row.actions, L"action", L"actions"));
}

/// The nodes that the editor shows of the lists of `engine`.
void AppendTree(const std::shared_ptr<SessionHost>& host, _aceActionsEngine& engine,
                const String& file, std::vector<Row>& rows) {
    sim::SimTree tree(*host);
    sim::SimList list(*host);
    try {
        engine.LoadEditor(&list, &tree);
    } catch (...) {
        const RunTimeError error = CurrentRunTimeError();
        const String reason = error.Number() == Errors::KeyInUse
                                  ? String(
                                        L"a node of it comes twice, such as a test whose "
                                        L"VKS_UKey another test has too")
                                  : error.Description();
        throw CommandError{Outcome::Failed, file + L": the tree can't be built: " + reason +
                                                L" (error " + std::to_wstring(error.Number()) +
                                                L")"};
    }
    AppendRows(tree, rows);
}

/// What is printed below the head.
struct Content {
    std::vector<String> notes;
    std::vector<Row> rows;
};

Content ReadContent(const TestSetUp& setUp, const String& file) {
    const auto host = std::make_shared<SessionHost>();
    host->journal.KeepNone();
    ThreadContext context(host);
    const LoadedEngines engines = LoadEngines(context, setUp, file);
    Content content{engines.notes, {}};
    for (const GoneSection& gone : engines.places.Gone()) {
        content.notes.push_back(L"[" + gone.section + L"] has " +
                                Counted(gone.actions, L"action", L"actions") +
                                L", but the matrix has no such row");
    }
    for (const auto* engine : {&engines.engine, &engines.steps}) {
        if (*engine != nullptr) {
            AppendTree(host, **engine, file, content.rows);
        }
    }
    return content;
}

void Print(ConsoleReport& report, const TestSetUp& setUp, const Content& content) {
    report.PrintTitle(setUp);
    report.PrintNotes(setUp.notes);
    report.PrintNotes(content.notes);
    report.PrintText(content.rows.empty() ? L"\nno moments" : L"\n");
    for (const Row& row : content.rows) {
        report.PrintText(LineOf(row));
    }
}

}  // namespace

/// The name of the file is not printed, so that two files can be compared.
void TreeCommand(const SetUpArguments& arguments, std::ostream& out) {
    const SetUpOptions options = ReadOptions(arguments);
    const String file = FromUtf8(arguments.file);
    const TestSetUp setUp = ReadListsSetUp(ExistingDocument(arguments.file), file, options);
    const Content content = ReadContent(setUp, file);

    std::ostringstream text;
    ConsoleReport report(text, false);
    Print(report, setUp, content);
    out << text.str();
}

}  // namespace ace::workbench
