#include "workbench/devices/fault_rules.h"

#include <algorithm>

#include <ace/core/text.h>

#include "workbench/files/text_lines.h"
#include "workbench/words/outcome.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr StringView Form =
    L"a failure is written like \"GPIB 0:13 fails at the 40th write\", \"device NAME fails at "
    L"every "
    L"reading\" or \"program PATTERN fails from the 2nd start on\"";

/// What can fail by the word of a script; the buses are told by their addresses.
struct SubjectRow {
    FaultSubject subject;
    StringView word;
};
constexpr SubjectRow Subjects[] = {
    {FaultSubject::Device, L"device "},
    {FaultSubject::Program, L"program "},
    {FaultSubject::Macro, L"macro "},
};

/// An act that can fail by its word, and what can fail in it.
struct ActRow {
    StringView word;
    FaultAct act;
    std::vector<FaultSubject> subjects;
};
const std::vector<ActRow>& Acts() {
    using enum FaultSubject;
    static const std::vector<FaultSubject> buses = {Gpib, Serial, Tcp};
    static const std::vector<ActRow> rows = {
        {L"opening", FaultAct::Opening, buses},          {L"write", FaultAct::Write, buses},
        {L"activation", FaultAct::Activation, {Device}}, {L"state", FaultAct::State, {Device}},
        {L"setting", FaultAct::Setting, {Device}},       {L"reading", FaultAct::Reading, {Device}},
        {L"switching", FaultAct::Switching, {Device}},   {L"call", FaultAct::Call, {Device}},
        {L"start", FaultAct::Start, {Program}},          {L"run", FaultAct::Run, {Macro}},
    };
    return rows;
}

/// One line of a script while it is read.
class LineReader {
  public:
    LineReader(const String& path, std::size_t line, StringView text)
        : x_path(path), x_line(line), x_rest(Trimmed(text)) {}

    FaultRule Read() {
        FaultRule rule;
        rule.line = x_line;
        rule.text = x_rest;
        const bool hasNumber = ReadError(rule);
        const std::size_t fails = x_rest.find(L" fails ");
        if (fails == StringView::npos) {
            Refuse(Form);
        }
        ReadSubject(rule, Trimmed(x_rest.substr(0, fails)));
        ReadWhen(rule, Trimmed(x_rest.substr(fails + StringView(L" fails ").size())));
        if (hasNumber) {
            RequireEffect(rule);
        }
        return rule;
    }

  private:
    [[noreturn]] void Refuse(StringView why) const {
        RefuseFile(x_path + L":" + std::to_wstring(x_line) + L": " + String(why));
    }

    /// ", error 8202" at the end; false when nothing of that stands there.
    bool ReadError(FaultRule& rule) {
        static constexpr StringView Word = L", error ";
        const std::size_t at = x_rest.rfind(Word);
        if (at == StringView::npos) {
            return false;
        }
        const auto number = WholeInteger(x_rest.substr(at + Word.size()));
        if (!number || *number == 0) {
            Refuse(L"behind \"error\" stands the number of a run-time error, not 0");
        }
        rule.error = *number;
        x_rest = Trimmed(x_rest.substr(0, at));
        return true;
    }

    /// A number that nobody would notice is a failure that the script only seems to try.
    void RequireEffect(const FaultRule& rule) const {
        if (rule.subject == FaultSubject::Macro) {
            Refuse(L"a macro fails with a text and has no error number");
        }
        if (rule.act == FaultAct::Start && rule.error == Errors::InvalidProcedureCall) {
            Refuse(
                L"a start can't fail with error 5: the engine takes it for the answer that the "
                L"program does not run yet");
        }
    }

    void ReadSubject(FaultRule& rule, StringView text) const {
        for (const SubjectRow& row : Subjects) {
            if (EqualNoCase(text.substr(0, row.word.size()), row.word)) {
                rule.subject = row.subject;
                rule.name = Trimmed(text.substr(row.word.size()));
                return;
            }
        }
        const auto address = ReadAddress(text);
        if (!address) {
            Refuse(
                L"what fails is GPIB 0:13, COM3, TCP host:port, device NAME, program PATTERN or "
                L"macro PATTERN");
        }
        static constexpr FaultSubject ByBus[] = {FaultSubject::Gpib, FaultSubject::Serial,
                                                 FaultSubject::Tcp};
        rule.subject = ByBus[static_cast<std::size_t>(address->bus)];
        rule.name = AddressText(*address);
    }

    /// "at the 40th write", "at every write", "from the 3rd write on".
    void ReadWhen(FaultRule& rule, StringView text) const {
        static constexpr StringView Every = L"at every ";
        static constexpr StringView At = L"at the ";
        static constexpr StringView From = L"from the ";
        static constexpr StringView On = L" on";
        if (text.starts_with(Every)) {
            rule.isForGood = true;
            ReadAct(rule, text.substr(Every.size()));
        } else if (text.starts_with(At)) {
            ReadNumberedAct(rule, text.substr(At.size()));
        } else if (text.starts_with(From) && text.substr(From.size()).ends_with(On)) {
            rule.isForGood = true;
            text.remove_suffix(On.size());
            ReadNumberedAct(rule, text.substr(From.size()));
        } else {
            Refuse(Form);
        }
    }

    /// "40th write".
    void ReadNumberedAct(FaultRule& rule, StringView text) const {
        static constexpr StringView Endings[] = {L"st", L"nd", L"rd", L"th"};
        const std::size_t blank = text.find(L' ');
        StringView ordinal = text.substr(0, blank);
        for (const StringView ending : Endings) {
            if (ordinal.ends_with(ending)) {
                ordinal.remove_suffix(ending.size());
                break;
            }
        }
        const auto number = WholeInteger(ordinal);
        if (blank == StringView::npos || !number || *number < 1) {
            Refuse(Form);
        }
        rule.first = static_cast<std::size_t>(*number);
        ReadAct(rule, text.substr(blank + 1));
    }

    void ReadAct(FaultRule& rule, StringView word) const {
        String known;
        for (const ActRow& row : Acts()) {
            if (std::ranges::find(row.subjects, rule.subject) == row.subjects.end()) {
                continue;
            }
            if (EqualNoCase(Trimmed(word), row.word)) {
                rule.act = row.act;
                return;
            }
            known += (known.empty() ? L"" : L", ") + String(row.word);
        }
        Refuse(L"\"" + String(Trimmed(word)) + L"\" is nothing that can fail here: " + known);
    }

    const String& x_path;
    std::size_t x_line;
    StringView x_rest;
};

/// A device's name and an address are meant as they stand; command lines have wildcards.
bool FitsName(const FaultRule& rule, StringView name) {
    const bool isPattern =
        rule.subject == FaultSubject::Program || rule.subject == FaultSubject::Macro;
    return isPattern ? FitsPattern(name, rule.name) : EqualNoCase(name, rule.name);
}

}  // namespace

FaultRules::FaultRules(StringView script, const String& path) {
    std::size_t number = 0;
    for (const StringView whole : LinesOf(script)) {
        ++number;
        const StringView line = Trimmed(whole);
        if (!IsEmptyOrComment(line, L"#")) {
            x_rules.push_back({LineReader(path, number, line).Read()});
        }
    }
}

void FaultRules::Count(FaultSubject subject, StringView name, FaultAct act) {
    Counted* failing = nullptr;
    for (Counted& counted : x_rules) {
        const FaultRule& rule = counted.rule;
        if (rule.subject != subject || !FitsName(rule, name) ||
            (rule.act != act && rule.act != FaultAct::Call)) {
            continue;
        }
        ++counted.seen;
        const bool fails = rule.isForGood ? counted.seen >= rule.first : counted.seen == rule.first;
        counted.wasUsed = counted.wasUsed || fails;
        if (fails && failing == nullptr) {
            failing = &counted;
        }
    }
    if (failing == nullptr) {
        return;
    }
    if (onFault) {
        onFault(failing->rule);
    }
    throw RunTimeError(failing->rule.error, L"on purpose: " + failing->rule.text, L"workbench");
}

std::vector<FaultRule> FaultRules::All() const {
    std::vector<FaultRule> rules;
    for (const Counted& counted : x_rules) {
        rules.push_back(counted.rule);
    }
    return rules;
}

std::vector<String> FaultRules::Unused() const {
    std::vector<String> lines;
    for (const Counted& counted : x_rules) {
        if (!counted.wasUsed) {
            lines.push_back(counted.rule.text);
        }
    }
    return lines;
}

}  // namespace ace::workbench
