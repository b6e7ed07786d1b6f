#include <ace/settings/action_line.h>
#include <ace/settings/entry_line.h>
#include <ace/settings/keyword_table.h>

namespace ace {

namespace {

constexpr StringView LineEnd = L"\r\n";

/// One entry as a line. A kind outside the kinds leaves the key alone.
String EntryLineText(LineText& text, StringView key, std::int32_t number, const p_Action& action) {
    text.Add(key).Add(number).Add(L"=");
    if (const KeywordRow* row = FindWriter(action.ActionType)) {
        text.Add(row->keyword);
        row->write(text, action);
    }
    return text.Take();
}

/// The lines of one list, each with its end.
String Joined(const DynArray<String>& lines) {
    String text;
    for (const String& line : lines) {
        text.append(line).append(LineEnd);
    }
    return text;
}

}  // namespace

Value modActions::WriteSection(ThreadContext& context, const DynArray<p_Action>& actions,
                               std::int32_t count, std::int32_t listNumber) {
    constexpr auto Lists = static_cast<std::int32_t>(std::size(ActionListKeys));
    return Logged(context, ModuleLines(L"WriteSection"), NoMessage,
                  [&](const Statements& stmt) -> Value {
                      if (count < 1 || listNumber < 1 || listNumber > Lists) {
                          return {};
                      }
                      const ListKeys& keys = ActionListKeys[listNumber - 1];
                      DynArray<String> lines;
                      lines.Redim(0, count);
                      LineText text(context, stmt);
                      lines[0] = text.Add(keys.count).Add(L"=").Add(count).Take();
                      for (std::int32_t i = 0; i < count; ++i) {
                          lines[i + 1] = EntryLineText(text, keys.entry, i + 1, actions[i]);
                      }
                      return lines;
                  });
}

void modActions::WriteActionList(ThreadContext& context, ISettingsFile& settings,
                                 const String& section, const p_Subrange& source) {
    Logged(context, ModuleLines(L"WriteActionList"), NoMessage, [&](const Statements& stmt) {
        String text;
        std::int32_t listNumber = 0;
        for (const ListFields& list : ActionLists) {
            ++listNumber;
            if (source.*list.count < 1) {
                continue;
            }
            const Value lines = stmt([&] {
                return WriteSection(context, source.*list.actions, source.*list.count, listNumber);
            });
            if (const auto* array = std::get_if<DynArray<String>>(&lines)) {
                text += Joined(*array);
            }
        }
        stmt([&] { settings.SetSection(section, text); });
    });
}

}  // namespace ace
