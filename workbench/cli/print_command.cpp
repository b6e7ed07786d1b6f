#include "workbench/cli/print_command.h"

#include <algorithm>
#include <sstream>

#include <ace/core/actions_engine.h>
#include <ace/core/operation.h>

#include "workbench/cli/console_report.h"
#include "workbench/cli/print_gaps.h"
#include "workbench/cli/print_layout.h"
#include "workbench/files/text_encoding.h"
#include "workbench/session/loaded_engines.h"
#include "workbench/session/session_host.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// What is printed below the head.
struct Content {
    std::vector<String> notes;
    std::vector<String> lines;
    PrintGaps gaps;
};

/// Why a print ends with `error`, for the user.
String ReasonOf(const RunTimeError& error) {
    const String number = L" (error " + std::to_wstring(error.Number()) + L")";
    if (error.Number() == Errors::ObjectNotSet) {
        return L"it can't be printed: the print asks the monitoring device for its name, and only "
               L"a test looks that up; ace-workbench tree shows it" +
               number;
    }
    return L"it can't be printed: " + error.Description() + number;
}

[[noreturn]] void RefusePrint(const EngineState& engine, const ActionPlaces& places,
                              const String& file, const RunTimeError& error) {
    const std::optional<UnprintableAction> found = FindUnprintable(engine);
    const std::optional<ActionSource> source = found ? places.Find(found->action) : std::nullopt;
    throw CommandError{Outcome::Failed, (source ? SourceText(file, *source) : file) + L": " +
                                            ReasonOf(found ? found->error : error)};
}

/// The block of one engine, printed by an object of its own as a host does it.
String BlockOf(_aceActionsEngine& engine, const EngineState& state, const ActionPlaces& places,
               const String& file) {
    aceActionsEngine print(state.Context);
    Array2D<String> rows;
    rows.Redim(0, 0, 0, 1);
    try {
        print.PrintStrings(state.Modul, engine, rows, 0);
    } catch (const RunTimeError& error) {
        RefusePrint(state, places, file, error);
    }
    return rows(0, 0);
}

/// `engine` is one of `engines`; of two each is named.
void AppendPrint(Content& content, const LoadedEngines& engines, _aceActionsEngine& engine,
                 const String& file, std::size_t width) {
    EngineState& state = dynamic_cast<aceActionsEngine&>(engine).State();
    const String block = BlockOf(engine, state, engines.places, file);
    content.lines.emplace_back();
    if (engines.steps != nullptr) {
        content.lines.push_back(L"Print of " + String(ModuleWordsOf(state.Modul).name));
    }
    if (block == L"\r") {
        content.lines.emplace_back(L"the print is empty");
    } else {
        std::ranges::copy(PrintLines(block, width), std::back_inserter(content.lines));
    }
    AddGaps(content.gaps, state, engines.places);
}

Content ReadContent(const TestSetUp& setUp, const String& file, std::size_t width) {
    const auto host = std::make_shared<SessionHost>();
    host->journal.KeepNone();
    ThreadContext context(host);
    const LoadedEngines engines = LoadEngines(context, setUp, file);
    Content content{engines.notes, {}, {}};
    for (const auto* engine : {&engines.engine, &engines.steps}) {
        if (*engine != nullptr) {
            AppendPrint(content, engines, **engine, file, width);
        }
    }
    AddRuledOut(content.gaps, engines.places);
    return content;
}

String Joined(const std::vector<String>& lines) {
    String text;
    for (const String& line : lines) {
        text += line + L'\n';
    }
    return text;
}

void Print(ConsoleReport& report, const TestSetUp& setUp, const Content& content,
           std::size_t width) {
    constexpr std::size_t PageWidth = 78;
    report.PrintTitle(setUp);
    report.PrintNotes(setUp.notes);
    report.PrintNotes(content.notes);
    report.PrintText(Joined(content.lines));
    const std::vector<Paragraph> note = GapsText(content.gaps);
    if (!note.empty()) {
        report.PrintText(L"\n" +
                         Joined(Boxed(note, width == 0 ? PageWidth : std::min(width, PageWidth))));
    }
}

}  // namespace

/// The name of the file is not printed, so that two files can be compared.
void PrintCommand(const SetUpArguments& arguments, const PrintOutput& output) {
    const SetUpOptions options = ReadOptions(arguments);
    const String file = FromUtf8(arguments.file);
    const TestSetUp setUp = ReadListsSetUp(ExistingDocument(arguments.file), file, options);
    const Content content = ReadContent(setUp, file, output.width);

    std::ostringstream text;
    ConsoleReport report(text, false);
    Print(report, setUp, content, output.width);
    output.out << text.str();
}

}  // namespace ace::workbench
