#include "workbench/session/answers.h"

#include <algorithm>
#include <array>

#include <ace/core/text.h>

#include "workbench/files/text_lines.h"
#include "workbench/words/outcome.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

struct AnswerWord {
    StringView word;
    PromptKind kind;
    Reply reply;
};
constexpr AnswerWord Words[] = {
    {L"OK", PromptKind::Notification, Reply::GoOn},
    {L"Stop", PromptKind::Notification, Reply::Stop},
    {L"Yes", PromptKind::Question, Reply::GoOn},
    {L"No", PromptKind::Question, Reply::Stop},
    {L"Ignore", PromptKind::Failure, Reply::GoOn},
    {L"Ignore all", PromptKind::Failure, Reply::IgnoreAll},
    {L"Stop", PromptKind::Failure, Reply::Stop},
};

constexpr PromptKind Kinds[] = {PromptKind::Notification, PromptKind::Question,
                                PromptKind::Failure};
constexpr StringView AnyKind = L"*";
constexpr StringView Always = L"always ";

[[noreturn]] void Refuse(const AnswerLine& line, const String& path, StringView why) {
    RefuseFile(path + L":" + std::to_wstring(line.line) + L": " + String(why));
}

/// The four fields; a message may hold "|" itself, so the last one ends it.
bool SplitFields(StringView line, std::array<StringView, 4>& fields) {
    const std::size_t first = line.find(L'|');
    const std::size_t second = first == StringView::npos ? first : line.find(L'|', first + 1);
    const std::size_t last = line.rfind(L'|');
    if (second == StringView::npos || last == second) {
        return false;
    }
    fields = {Trimmed(line.substr(0, first)), Trimmed(line.substr(first + 1, second - first - 1)),
              Trimmed(line.substr(second + 1, last - second - 1)), Trimmed(line.substr(last + 1))};
    return true;
}

bool FitsKind(StringView pattern, PromptKind kind) {
    return pattern == AnyKind || EqualNoCase(pattern, WordOf(kind));
}

/// The row with which a line answers a kind of dialog; none when it doesn't.
const AnswerWord* FindWord(StringView kindPattern, StringView answer, PromptKind kind) {
    const auto* const found = std::ranges::find_if(Words, [&](const AnswerWord& row) {
        return row.kind == kind && EqualNoCase(row.word, answer);
    });
    return found != std::end(Words) && FitsKind(kindPattern, kind) ? found : nullptr;
}

void ReadKind(AnswerLine& line, StringView kind, const String& path) {
    line.kind = kind;
    if (std::ranges::none_of(Kinds, [&](PromptKind known) { return FitsKind(kind, known); })) {
        Refuse(line, path,
               L"\"" + String(kind) + L"\" must be question, notification, failure or * for all");
    }
}

void ReadAnswer(AnswerLine& line, StringView word, const String& path) {
    if (EqualNoCase(word.substr(0, Always.size()), Always)) {
        line.always = true;
        word = Trimmed(word.substr(Always.size()));
    }
    line.answer = word;
    const auto answers = [&](StringView pattern) {
        return std::ranges::any_of(
            Kinds, [&](PromptKind kind) { return FindWord(pattern, word, kind) != nullptr; });
    };
    if (!answers(AnyKind)) {
        Refuse(line, path,
               L"\"" + line.answer +
                   L"\" is no answer: Yes or No to a question, OK or Stop to a notification, "
                   L"Ignore, Ignore all or Stop to a failure");
    }
    if (!answers(line.kind)) {
        Refuse(line, path, L"\"" + line.answer + L"\" is no answer to a " + line.kind);
    }
}

AnswerLine ReadLine(StringView text, std::size_t number, const String& path) {
    AnswerLine line{.line = number, .source = String(text)};
    std::array<StringView, 4> fields;
    if (!SplitFields(text, fields)) {
        Refuse(line, path, L"an answer is written as moment | question | message | answer");
    }
    line.moment = fields[0];
    line.message = fields[2];
    ReadKind(line, fields[1], path);
    ReadAnswer(line, fields[3], path);
    return line;
}

bool FitsMessage(const AnswerLine& line, PromptKind kind, const String& message) {
    return FindWord(line.kind, line.answer, kind) != nullptr && (line.always || line.used == 0) &&
           FitsPattern(OneLine(message), line.message);
}

bool Fits(const AnswerLine& line, const Prompt& prompt) {
    return FitsMessage(line, prompt.kind, prompt.message) &&
           (FitsPattern(prompt.moment, line.moment) || FitsPattern(prompt.operation, line.moment));
}

}  // namespace

Answers::Answers(StringView text, const String& path) {
    std::size_t number = 0;
    for (const StringView whole : LinesOf(text)) {
        ++number;
        const StringView line = Trimmed(whole);
        if (!IsEmptyOrComment(line, L"#")) {
            x_lines.push_back(ReadLine(line, number, path));
        }
    }
}

std::optional<Reply> Answers::Take(const Prompt& prompt) {
    const auto found =
        std::ranges::find_if(x_lines, [&](const AnswerLine& line) { return Fits(line, prompt); });
    if (found == x_lines.end()) {
        return std::nullopt;
    }
    ++found->used;
    return FindWord(found->kind, found->answer, prompt.kind)->reply;
}

bool Answers::CanAnswer(PromptKind kind, const String& message) const {
    return std::ranges::any_of(
        x_lines, [&](const AnswerLine& line) { return FitsMessage(line, kind, message); });
}

std::vector<const AnswerLine*> Answers::Unused() const {
    std::vector<const AnswerLine*> unused;
    for (const AnswerLine& line : x_lines) {
        if (line.used == 0) {
            unused.push_back(&line);
        }
    }
    return unused;
}

}  // namespace ace::workbench
