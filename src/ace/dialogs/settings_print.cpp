#include <algorithm>

#include <ace/core/actions_engine.h>
#include <ace/core/held_lists.h>
#include <ace/core/module_columns.h>
#include <ace/core/operation.h>
#include <ace/core/text.h>
#include <ace/dialogs/settings_print.h>
#include <ace/editor/action_text.h>

namespace ace {

namespace {

using enum TitleNumber;

/// Intentional: titles are not always those of the editor's tree, and some lists that run are not
/// among these: the steps of a wireless template, the every-frequency list of a susceptibility test
/// and the whole matrix. Behind the monitoring loop stands the fourth list, which no moment runs,
/// not the one that runs there. The rows of one module stand together.
constexpr PrintRow Rows[] = {
    {aceTemplate, ptStartTest, 9051},
    {aceTemplate, ptEveryFreq, 9052},
    {aceTemplate, ptEnterSubRange, 9053, 9054, Behind},
    {aceTemplate, ptLeaveSubrange, 9053, 9055, Behind},
    {aceTemplate, ptStopTest, 9056},

    {aceMonitoring, ptStartTest, 9051},
    {aceMonitoring, ptEveryFreq, 9052},
    {aceMonitoring, ptBeforeTest, 9101, 9094},
    {aceMonitoring, ptAfterTest, 9101, 9095, None, &MlcList},
    {aceMonitoring, ptTrigger, 21000, 9075, Behind},
    {aceMonitoring, ptNoGo, 21000, 9057, Behind},
    {aceMonitoring, ptGo, 21000, 9076, Behind},
    {aceMonitoring, ptAfter, 9087},
    {aceMonitoring, ptStopTest, 9056},

    {aceEMSAutoTemplateGeneral, ptStartTest, 9051},
    {aceEMSAutoTemplateGeneral, ptStopTest, 9056},

    {aceEMSAutoTemplate, ptStep, 9057, 0, InBrackets},

    {aceEMIAutoTemplate, ptStartTest, 9051},
    {aceEMIAutoTemplate, ptEveryFreq, 9052},
    {aceEMIAutoTemplate, ptBefore, 9080, 9090, OfText},
    {aceEMIAutoTemplate, ptAfter, 9080, 9091, OfText},
    {aceEMIAutoTemplate, ptStopTest, 9056},

    {aceTSTemplate, ptStartTest, 9092},
    {aceTSTemplate, ptBeforeTest, 9101, 9094},
    {aceTSTemplate, ptAfterTest, 9101, 9095},
    {aceTSTemplate, ptStopTest, 9093},

    {aceAziChart, ptStartTest, 9096},
    {aceAziChart, ptEveryFreq, 9052},
    {aceAziChart, ptStopTest, 9097},

    {aceVKSTemplate, ptStartTest, 9092},
    {aceVKSTemplate, ptBeforeTest, 9101, 9094},
    {aceVKSTemplate, ptAfterTest, 9101, 9095},
    {aceVKSTemplate, ptStopTest, 9093},
};

constexpr bool ModulesStandTogether() {
    for (std::size_t i = 1; i < std::size(Rows); ++i) {
        for (std::size_t j = 0; j + 1 < i; ++j) {
            if (Rows[j].moduleKind == Rows[i].moduleKind &&
                Rows[i - 1].moduleKind != Rows[i].moduleKind) {
                return false;
            }
        }
    }
    return true;
}
static_assert(ModulesStandTogether());

/// A row of the host's array: the text of the print, and beside it the marks by which the host's
/// report sets the columns of each line. They are handed on as they stand here.
constexpr std::int32_t TextColumn = 0;
constexpr std::int32_t LayoutColumn = 1;
constexpr StringView Layout = L"<*6.4in\r<*0.2in\t<*2in<*4.2in\t<*4.2in";
constexpr StringView EmptyRow = L"\r";
constexpr std::int32_t HeadingText = 18153;

bool IsNumbered(const PrintRow& row) {
    return FindMoment(row.moduleKind, row.time)->numbered != nullptr;
}

/// The rows at the beginning of `rows` that are walked together: all that come with a set's number,
/// or the first alone.
std::span<const PrintRow> FirstBlock(std::span<const PrintRow> rows) {
    const auto end = std::find_if_not(rows.begin(), rows.end(), IsNumbered);
    return rows.first(static_cast<std::size_t>(std::max(end - rows.begin(), std::ptrdiff_t{1})));
}

/// How often a block is walked.
std::int32_t TimesOf(const ModuleLists& lists, const PrintRow& row) {
    const NumberedSets* const numbered = FindMoment(row.moduleKind, row.time)->numbered;
    return numbered != nullptr ? lists.*numbered->count : 1;
}

PrintedList Printed(const PrintRow& row, std::int32_t number) {
    PrintedList list{row, *FindMoment(row.moduleKind, row.time), number};
    if (row.otherList != nullptr) {
        list.moment.list = *row.otherList;
    }
    return list;
}

// ---- the copy --------------------------------------------------------------------------------

void ForgetBusDevices(p_Subrange& set) {
    for (const ListFields& list : ActionLists) {
        for (p_Action& action : set.*list.actions) {
            if (auto* const record = std::get_if<aceRemote>(&action.Parameter)) {
                record->DrvHdl = aceRemote::NoHandle;
            }
        }
    }
}

/// The lists of a module without the bus devices that they have open: the end of an object closes
/// those of its lists, and these belong to another object.
ModuleLists CopyOf(const ModuleLists& lists, const ModuleRow& module) {
    ModuleLists copy;
    CopyModule(module.moduleKind, CopyFor::Print, lists, copy);
    for (const FixedSet& fixed : module.AllFixed()) {
        ForgetBusDevices(copy.*fixed.set);
    }
    for (const NumberedSets& numbered : module.AllNumbered()) {
        for (p_Subrange& set : copy.*numbered.sets) {
            ForgetBusDevices(set);
        }
    }
    return copy;
}

/// Makes `own` the copy that is printed. Error 10 comes before anything has changed, and a foreign
/// object is met when the lists are asked for: where none is printed, it is as good as any.
void TakeLists(EngineState& own, aceModul moduleKind, _aceActionsEngine& Engine) {
    const bool hasLists = !PrintRowsOf(moduleKind).empty();
    if (hasLists) {
        RequireFreeModule(own, moduleKind);
    }
    own.Modul = moduleKind;
    if (!hasLists) {
        return;
    }
    auto* const engine = dynamic_cast<aceActionsEngine*>(&Engine);
    if (engine == nullptr) {
        Raise(Errors::TypeMismatch);
    }
    if (&engine->State() != &own) {
        CopyModule(moduleKind, CopyFor::Print, CopyOf(engine->State(), *FindModule(moduleKind)),
                   own);
    }
}

// ---- the text --------------------------------------------------------------------------------

/// The lines of one list. It stays where it is meanwhile, and so do the sets beside its own.
String LinesOf(EngineState& state, const PrintedList& list) {
    const DynArray<p_Action>& actions =
        ListOf(std::as_const(state), list.moment, list.number).actions;
    const DynArray<p_Action>::Hold inner(actions);
    const auto display = [&] {
        return DisplayLine(state.Context, list.row.moduleKind, list.row.time, actions, false,
                           list.number);
    };
    if (list.moment.numbered == nullptr) {
        return display();
    }
    const DynArray<p_Subrange>::Hold outer(state.*list.moment.numbered->sets);
    return display();
}

/// Intentional: what the row held before stays and is headed, too.
void FinishRow(ThreadContext& context, const Statements& stmt, Array2D<String>& rows,
               std::int32_t row) {
    const bool isEmpty = stmt([&] { return rows(row, TextColumn).empty(); });
    if (!isEmpty) {
        stmt([&] {
            const String heading = context.Language().Text(HeadingText) + L":\r";
            rows(row, TextColumn).insert(0, heading);
        });
        return;
    }
    stmt([&] { rows(row, TextColumn) = EmptyRow; });
    stmt([&] { rows(row, LayoutColumn) = EmptyRow; });
}

}  // namespace

std::span<const PrintRow> PrintRowsOf(std::int32_t moduleKind) {
    const auto isOf = [&](const PrintRow& row) { return row.moduleKind == moduleKind; };
    const auto* const first = std::find_if(std::begin(Rows), std::end(Rows), isOf);
    return {first, std::find_if_not(first, std::end(Rows), isOf)};
}

void ForEachPrinted(const ModuleLists& lists, std::int32_t moduleKind, const PrintVisit& visit) {
    for (std::span<const PrintRow> rows = PrintRowsOf(moduleKind); !rows.empty();) {
        const std::span<const PrintRow> block = FirstBlock(rows);
        const std::int32_t times = TimesOf(lists, block.front());
        for (std::int32_t number = 0; number < times; ++number) {
            for (const PrintRow& row : block) {
                visit(Printed(row, number));
            }
        }
        rows = rows.subspan(block.size());
    }
}

String TitleOf(ThreadContext& context, const PrintedList& list) {
    const PrintRow& row = list.row;
    const std::int32_t step = row.numbering == OfText ? list.number : 0;
    String title = context.Language().Text(row.firstText + step);
    if (row.numbering == Behind) {
        title += L' ' + IntegerText(list.number + 1);
    } else if (row.numbering == InBrackets) {
        title += L" (" + IntegerText(list.number + 1) + L')';
    }
    if (row.secondText != 0) {
        title += L": " + context.Language().Text(row.secondText);
    }
    return title;
}

/// The layout stands before the lists are walked, so that it is there in a row that an error leaves
/// half filled.
void aceActionsEngine::PrintStrings(aceModul Modul, _aceActionsEngine& Engine,
                                    Array2D<String>& strTmps, std::int32_t lngIdx) {
    const std::shared_ptr<EngineState> state = x_state;
    ThreadContext& context = state->Context;
    const auto message = [&] { return L"Modul = " + IntegerText(Modul); };
    Logged(context, EditorLines(L"PrintStrings"), message, [&](const Statements& stmt) {
        stmt([&] { TakeLists(*state, Modul, Engine); });
        stmt([&] { strTmps(lngIdx, LayoutColumn) = Layout; });
        ForEachPrinted(*state, Modul, [&](const PrintedList& list) {
            const String lines = stmt([&] { return LinesOf(*state, list); });
            if (!lines.empty()) {
                stmt([&] {
                    const String block = TitleOf(context, list) + L'\r' + lines;
                    strTmps(lngIdx, TextColumn) += block;
                });
            }
        });
        FinishRow(context, stmt, strTmps, lngIdx);
    });
}

}  // namespace ace
