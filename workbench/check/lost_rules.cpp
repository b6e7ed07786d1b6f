// What the load of a file passes over, and what a save doesn't bring back.
#include <cmath>
#include <set>

#include <ace/core/text.h>
#include <ace/settings/action_line.h>

#include "workbench/check/rule_tests.h"
#include "workbench/words/slips.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

/// What a list is called by its keys: "EnterAction".
StringView ListWord(std::int32_t list) {
    return ActionListKeys[list - 1].entry;
}

/// ": did you mean SWITCHAMP?" or nothing.
String Hint(StringView text, std::span<const StringView> words) {
    const StringView near = NearestWord(text, words);
    return near.empty() ? String() : L" Did you mean " + String(near) + L"?";
}

std::vector<StringView> KeywordsOf(std::int32_t list) {
    std::vector<StringView> words;
    for (const KeywordRow& row : KeywordTable()) {
        if (row.IsKnownIn(static_cast<std::size_t>(list - 1))) {
            words.push_back(row.keyword);
        }
    }
    return words;
}

/// The key without its number, and the words that it could be.
StringView WithoutNumber(StringView key) {
    return key.substr(0, key.find_last_not_of(L"0123456789") + 1);
}
std::vector<StringView> KeyWords() {
    std::vector<StringView> words;
    for (const ListKeys& keys : ActionListKeys) {
        words.push_back(keys.count);
        words.push_back(keys.entry);
    }
    return words;
}

bool IsListKey(StringView key) {
    return std::ranges::any_of(
        KeyWords(), [&](StringView word) { return EqualNoCase(word, WithoutNumber(key)); });
}

/// How to write what has a comma too many, by the first field of its form.
struct CommaAdvice {
    LineField first;
    StringView words;
};
constexpr CommaAdvice CommaAdvices[] = {
    {LineField::Time, L"Write the milliseconds with a point."},
    {LineField::Message, L"Write a comma of the message as the character of number 1."},
    {LineField::Command, L"Write a comma of the command as the character of number 1."},
    {LineField::GeneratorOff, L"Write 1 or 0 alone."},
};

StringView AdviceOf(const LineForm& form) {
    const auto* const advice =
        std::ranges::find(CommaAdvices, form.fields.front().field, &CommaAdvice::first);
    return advice != std::end(CommaAdvices)
               ? advice->words
               : L"Write names without commas, and decimals with a point.";
}

/// So many digits behind the point are all that a number has, as exactly as its type holds them.
template <class Number>
bool KeepsDigits(Number number, int decimals) {
    const double scale = std::pow(10.0, decimals);
    const double scaled = static_cast<double>(number) * scale;
    return static_cast<Number>(std::round(scaled) / scale) == number || std::abs(scaled) > 1e15;
}

/// A reader rounds what stands there.
bool IsRounded(const FormField& field) {
    static constexpr LineField Whole[] = {LineField::GpibAddress, LineField::SerComPort,
                                          LineField::Terminator};
    return field.reading == FieldReading::StrictNumber || field.reading == FieldReading::Port ||
           (field.reading == FieldReading::Number &&
            std::ranges::find(Whole, field.field) != std::end(Whole));
}

}  // namespace

void RuleTests::UnknownKeyword(const CheckedFile& file, const CheckedSection& section,
                               const CheckedLine& line, const Found& found) {
    if (line.meaning == LineMeaning::UnknownKeyword && line.row == nullptr) {
        found.At(
            file, section, line,
            {line.keyword, Hint(line.keyword, KeywordsOf(line.list)), String(ListWord(line.list))});
    }
}

void RuleTests::KeywordOfOtherList(const CheckedFile& file, const CheckedSection& section,
                                   const CheckedLine& line, const Found& found) {
    if (line.meaning == LineMeaning::UnknownKeyword && line.row != nullptr) {
        found.At(file, section, line, {String(line.row->keyword), String(ListWord(line.list))});
    }
}

void RuleTests::ForeignKey(const CheckedFile& file, const CheckedSection& section,
                           const CheckedLine& line, const Found& found) {
    const bool isShort = line.meaning == LineMeaning::Short && !Trimmed(line.text).empty();
    if (line.meaning != LineMeaning::UnknownKey && !isShort) {
        return;
    }
    const StringView key = Trimmed(line.key);
    const bool hasBlanks = key.size() != line.key.size() && IsListKey(key);
    found.At(file, section, line,
             {hasBlanks ? String(L" There are blanks around the key.") : KeyHint(key)});
}

/// The line that counts is the last one of its entry.
void RuleTests::EntryTwice(const CheckedFile& file, const CheckedSection& section,
                           const CheckedLine& line, const Found& found) {
    if (line.meaning == LineMeaning::Entry && !line.fills) {
        found.At(file, section, line,
                 {String(ListWord(line.list)) + std::to_wstring(line.entry + 1)});
    }
}

void RuleTests::CountTwice(const CheckedFile& file, const CheckedSection& section,
                           const Found& found) {
    std::set<std::int32_t> lists;
    for (const CheckedLine& line : section.lines) {
        if (line.meaning == LineMeaning::Count && !lists.insert(line.list).second) {
            found.At(file, section, line, {line.key});
        }
    }
}

String RuleTests::KeyHint(StringView key) {
    return IsListKey(key) ? String() : Hint(WithoutNumber(key), KeyWords());
}

std::optional<std::int32_t> RuleTests::WrittenTerminator(const CheckedAction& action) {
    const std::optional<StringView> port = action.line.TextOf(LineField::TcpPort);
    const auto terminator = port ? SplitPort(*port).terminator : std::nullopt;
    return terminator ? WholeInteger(*terminator) : std::nullopt;
}

void RuleTests::LostTerminator(const CheckedAction& action, const Found& found) {
    const std::optional<std::int32_t> code = WrittenTerminator(action);
    const auto* const record = action.As<aceRemote>();
    if (code && action.line.list != 1 && *code != record->Terminator) {
        found.At(action, {std::to_wstring(*code), std::to_wstring(record->Terminator)});
    }
}

void RuleTests::LostDecimals(const CheckedAction& action, const Found& found) {
    const auto tell = [&](auto number, int decimals) {
        if (!KeepsDigits(number, decimals)) {
            found.At(action, {FormatGeneral(number, L'.'), FormatFixed(number, decimals, L'.')});
        }
    };
    if (const auto* const wait = action.As<aceWait>()) {
        tell(wait->Time, 3);
    }
    std::size_t index = 0;
    for (const FormField& field : action.line.Form().fields) {
        const auto text = IsRounded(field) ? action.line.Field(index) : std::nullopt;
        const std::optional<double> number =
            text ? WholeNumber(SplitPort(*text).port) : std::nullopt;
        ++index;
        if (number && *number != std::nearbyint(*number)) {
            found.At(action, {FormatGeneral(*number, L'.'), FormatFixed(*number, 0, L'.')});
        }
    }
    const auto* const check = action.As<aceSetDevice>();
    if (check != nullptr && (action.IsOf(L"CHECKEUT:") || action.IsOf(L"MONITOREUT:"))) {
        tell(check->CycleTime, 2);
        tell(check->WaitTime, 2);
    }
}

void RuleTests::MoreFields(const CheckedAction& action, const Found& found) {
    const LineForm form = action.line.Form();
    const std::size_t fields = action.line.FieldCount();
    if (!form.isOpen && fields > form.fields.size()) {
        found.At(action, {Counted(fields, L"field", L"fields"), std::to_wstring(form.fields.size()),
                          String(AdviceOf(form))});
    }
}

}  // namespace ace::workbench
