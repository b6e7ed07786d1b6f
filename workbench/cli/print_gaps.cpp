#include "workbench/cli/print_gaps.h"

#include <algorithm>
#include <functional>
#include <map>

#include <ace/core/operation.h>
#include <ace/core/text.h>
#include <ace/dialogs/settings_print.h>
#include <ace/editor/action_text.h>
#include <ace/editor/matrix_plan.h>
#include <ace/execution/what_runs.h>

#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

using Actions = DynArray<p_Action>;

/// All lists of the module that the engine serves. Behind the counted sets an array may keep what
/// is left of one that has gone.
void ForEachList(const EngineState& engine, const std::function<void(const Actions&)>& visit) {
    const auto visitSet = [&](const p_Subrange& set) {
        for (const ListFields& list : ActionLists) {
            visit(set.*list.actions);
        }
    };
    const ModuleRow& module = *FindModule(engine.Modul);
    for (const FixedSet& fixed : module.AllFixed()) {
        visitSet(engine.*fixed.set);
    }
    for (const NumberedSets& numbered : module.AllNumbered()) {
        std::int32_t rest = engine.*numbered.count;
        for (const p_Subrange& set : engine.*numbered.sets) {
            if (rest-- > 0) {
                visitSet(set);
            }
        }
    }
}

// ---- names -----------------------------------------------------------------------------------

/// The lists that the editor shows, by what stands above them there.
class TreeNames {
  public:
    explicit TreeNames(EngineState& engine) : x_engine(engine) {
        const NodeSink add = [this](const PlannedNode& node) { Add(node); };
        if (engine.Modul == aceVKSDUT) {
            PlanMatrix(engine, engine.RowPlaces, add);
        } else {
            PlanTree(engine, engine.Modul, add);
        }
    }
    /// Empty for a list that the editor doesn't show.
    String Of(const Actions& actions) const {
        const auto found = x_names.find(&actions);
        return found != x_names.end() ? found->second : String();
    }

  private:
    void Add(const PlannedNode& node) {
        const NodeCaption& caption = node.caption;
        String name = caption.number == 0
                          ? caption.words
                          : x_engine.Context.Language().Text(caption.number) + caption.words;
        if (!node.parent.empty()) {
            name = x_captions[node.parent] + L": " + name;
        }
        x_captions[node.key] = name;
        if (const Actions* actions = ActionsOf(node)) {
            x_names.emplace(actions, name);
        }
    }
    /// None for a group, and for a row of the matrix that isn't there.
    const Actions* ActionsOf(const PlannedNode& node) const {
        if (node.moment != nullptr) {
            return &ListOf(std::as_const(x_engine), *node.moment, node.number).actions;
        }
        const MomentRow& row = *FindMoment(aceVKSDUT, ptStep);
        if (x_engine.Modul != aceVKSDUT || !node.key.starts_with(row.key)) {
            return nullptr;
        }
        const std::int32_t number = ReadStrictInteger(StringView(node.key).substr(row.key.size()));
        return number < 0 ? nullptr : &ListOf(std::as_const(x_engine), row, number).actions;
    }

    EngineState& x_engine;
    std::map<String, String> x_captions;
    std::map<const Actions*, String> x_names;
};

/// The words for lists and entries of one engine.
class GapNames {
  public:
    GapNames(EngineState& engine, const ActionPlaces& places) : x_places(places), x_tree(engine) {}

    /// "After the test loop, [ActionsOnMonTestLoop] LeaveAction1-3"
    String OfList(const Actions& actions) const {
        String place = PlaceOf(actions[actions.LowerBound()]);
        if (!place.empty() && actions.Size() > 1) {
            place += L"-" + std::to_wstring(actions.Size());
        }
        return WithPlace(actions, place);
    }
    String OfEntry(const Actions& actions, const p_Action& action) const {
        return WithPlace(actions, PlaceOf(action));
    }

  private:
    /// Nothing for a list that doesn't come from the file.
    String PlaceOf(const p_Action& action) const {
        const std::optional<ActionSource> source = x_places.Find(&action);
        return source ? L"[" + source->section + L"] " + EntryKey(*source) : String();
    }
    String WithPlace(const Actions& actions, const String& place) const {
        const String name = x_tree.Of(actions);
        if (name.empty()) {
            return place.empty() ? String(L"a list that the editor doesn't show") : place;
        }
        return OneLine(place.empty() ? name : name + L", " + place);
    }

    const ActionPlaces& x_places;
    TreeNames x_tree;
};

/// `name` is asked for only where it is wanted: to find a place takes time.
void AddTo(GapLists& lists, std::size_t actions, const std::function<String()>& name) {
    lists.actions += actions;
    if (lists.named.size() < GapLists::MostNamed) {
        lists.named.push_back({name(), actions});
    } else {
        ++lists.otherLists;
    }
}

// ---- what is printed ---------------------------------------------------------------------------

String LineOf(const EngineState& engine, p_PerformTimes time, const p_Action& action) {
    Actions one;
    one.Redim(0, 0);
    one[0] = action;
    return DisplayLine(engine.Context, engine.Modul, time, one, false, 0);
}

/// A command whose end is missing in its line.
bool IsCut(const EngineState& engine, const PrintRow& row, const p_Action& action) {
    const auto* const record = std::get_if<aceRemote>(&action.Parameter);
    return record != nullptr && !record->Command.empty() &&
           !LineOf(engine, row.time, action).ends_with(L'"' + record->Command + L"\"\r");
}

/// Where the program's own name ends in a command line: at its closing quote or the first blank.
std::size_t EndOfName(StringView commandLine) {
    const std::size_t begin = commandLine.find_first_not_of(L" \t");
    if (begin == StringView::npos) {
        return commandLine.size();
    }
    const StringView ends = commandLine[begin] == L'"' ? L"\"" : L" \t";
    return std::min(commandLine.find_first_of(ends, begin + 1), commandLine.size());
}

/// The print shows what stands behind the last "\", which may be a part of an argument.
bool IsNameShown(const String& commandLine) {
    const std::size_t last = commandLine.rfind(L'\\');
    return last == String::npos || last < EndOfName(commandLine);
}

/// What an action does and its line doesn't say; empty for nothing.
StringView MissingPart(const p_Action& action) {
    if (const auto* const remote = std::get_if<aceRemote>(&action.Parameter)) {
        if (!remote->Command.empty()) {
            return remote->Program.empty() ? L"" : L"its program";
        }
        return IsNameShown(remote->Program) ? L"" : L"its program's name";
    }
    const auto* const track = std::get_if<aceTrackFreq>(&action.Parameter);
    const bool isBoth = track != nullptr && !track->GenName.empty() && !track->MoniName.empty();
    return isBoth ? L"its monitoring device" : L"";
}

/// The lists that are printed.
using PrintedActions = std::map<const Actions*, const PrintRow*>;

PrintedActions PrintedOf(const EngineState& engine) {
    PrintedActions printed;
    ForEachPrinted(engine, engine.Modul, [&](const PrintedList& list) {
        printed[&ListOf(engine, list.moment, list.number).actions] = &list.row;
    });
    return printed;
}

/// One list of an engine.
struct GapSource {
    const EngineState& engine;
    const GapNames& names;
    const Actions& actions;
    const PrintRow* row;  ///< none where it isn't printed

    bool IsLeftOut() const { return row == nullptr; }
    /// Another list runs at the moment under whose title this one is printed.
    bool IsInWrongPlace() const { return row != nullptr && row->otherList != nullptr; }
};

/// What the line of a printed action doesn't say.
void AddPrinted(PrintGaps& gaps, const GapSource& source, const p_Action& action) {
    const auto name = [&] { return source.names.OfEntry(source.actions, action); };
    gaps.cutCommands += IsCut(source.engine, *source.row, action) ? 1U : 0U;
    const StringView missing = MissingPart(action);
    if (!missing.empty()) {
        AddTo(gaps.inPart, 1, [&] { return name() + L": " + String(missing); });
    }
    if (source.row->time == ptEveryFreq && !FrequencyKinds.Has(action.ActionType)) {
        AddTo(gaps.neverRun, 1, name);
    }
}

/// Answers how many actions of a list have a line in the editor, and tells of each what is to be
/// told of it alone.
std::size_t AddEntries(PrintGaps& gaps, const GapSource& source) {
    std::size_t lines = 0;
    for (const p_Action& action : source.actions) {
        if (!TreeText(source.engine.Context, source.engine.Modul, action)) {
            AddTo(gaps.empty, 1, [&] { return source.names.OfEntry(source.actions, action); });
            continue;
        }
        ++lines;
        if (!source.IsLeftOut()) {
            AddPrinted(gaps, source, action);
        }
    }
    return lines;
}

// ---- the note ----------------------------------------------------------------------------------

String ActionsText(std::size_t count) {
    return Counted(count, L"action", L"actions");
}

/// The number of a line, in the column of those of its neighbours.
String Lead(std::size_t number, std::size_t digits) {
    const String text = std::to_wstring(number);
    return L"   " + String(digits - text.size(), L' ') + text + L"  ";
}

/// A paragraph for the head and one for each list.
void AppendLists(std::vector<Paragraph>& text, const String& head, const GapLists& lists) {
    if (lists.actions == 0) {
        return;
    }
    text.push_back({{}, head + L": " + ActionsText(lists.actions)});
    const std::size_t digits = std::to_wstring(lists.actions).size();
    std::size_t rest = lists.actions;
    for (const GapLists::Named& list : lists.named) {
        text.push_back({Lead(list.actions, digits), list.name});
        rest -= list.actions;
    }
    if (rest > 0) {
        text.push_back({Lead(rest, digits),
                        L"in " + Counted(lists.otherLists, L"more place", L"more places")});
    }
}

}  // namespace

void AddGaps(PrintGaps& gaps, EngineState& engine, const ActionPlaces& places) {
    const PrintedActions printed = PrintedOf(engine);
    const GapNames names(engine, places);
    ForEachList(engine, [&](const Actions& actions) {
        const auto found = printed.find(&actions);
        const GapSource source{engine, names, actions,
                               found != printed.end() ? found->second : nullptr};
        const std::size_t lines = AddEntries(gaps, source);
        if (lines > 0 && (source.IsLeftOut() || source.IsInWrongPlace())) {
            AddTo(source.IsLeftOut() ? gaps.leftOut : gaps.neverRun, lines,
                  [&] { return names.OfList(actions); });
        }
    });
}

void AddRuledOut(PrintGaps& gaps, const ActionPlaces& places) {
    for (const GoneSection& gone : places.Gone()) {
        AddTo(gaps.ruledOut, gone.actions, [&] { return OneLine(L"[" + gone.section + L"]"); });
    }
}

std::vector<Paragraph> GapsText(const PrintGaps& gaps) {
    std::vector<Paragraph> text;
    AppendLists(text, L"NOT ON THIS PRINT", gaps.leftOut);
    AppendLists(text, L"PRINTED, BUT NEVER RUN", gaps.neverRun);
    AppendLists(text, L"NEVER RUN, because the matrix has no such row", gaps.ruledOut);
    AppendLists(text, L"A PART IS NOT ON THIS PRINT", gaps.inPart);
    AppendLists(text, L"WITHOUT A LINE, because the file has none that the list knows", gaps.empty);
    if (gaps.cutCommands > 0) {
        text.push_back(
            {{},
             L"PRINTED WITHOUT THEIR END: " + Counted(gaps.cutCommands, L"command", L"commands")});
    }
    return text;
}

std::optional<UnprintableAction> FindUnprintable(const EngineState& engine) {
    std::optional<UnprintableAction> found;
    ForEachPrinted(engine, engine.Modul, [&](const PrintedList& list) {
        for (const p_Action& action : ListOf(engine, list.moment, list.number).actions) {
            if (found) {
                return;
            }
            try {
                LineOf(engine, list.row.time, action);
            } catch (const RunTimeError& error) {
                found = UnprintableAction{&action, error};
            }
        }
    });
    return found;
}

}  // namespace ace::workbench
