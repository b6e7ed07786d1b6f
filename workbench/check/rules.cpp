#include "workbench/check/rules.h"

#include <algorithm>
#include <tuple>

#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

constexpr GroupWords Groups[FindingGroupCount] = {
    {L"stops", L"Stops the load or the save", L"of what stops the load or the save"},
    {L"lost", L"Skipped or lost", L"of what is skipped or lost"},
    {L"taken-over", L"Taken over from a line above", L"of what is taken over"},
    {L"never-runs", L"Never runs, or does not do what it says",
     L"of what does not do what it says"},
};

/// The rules by which a file is looked at: what is not loaded to its end is not known to be
/// skipped, lost or unused.
std::vector<const Rule*> RulesFor(const CheckedFile& file) {
    std::vector<const Rule*> rules;
    for (const auto part : {LoadRules(), RunRules()}) {
        for (const Rule& rule : part) {
            if (file.Failure().empty() || rule.group == FindingGroup::Stops) {
                rules.push_back(&rule);
            }
        }
    }
    return rules;
}

/// Each action is looked up once for all rules; a file has many.
void LookAtSection(const CheckedFile& file, const CheckedSection& section,
                   const std::vector<const Rule*>& rules, std::vector<Finding>& findings) {
    std::vector<const Rule*> ofActions;
    for (const Rule* const rule : rules) {
        if (rule->inSection != nullptr) {
            rule->inSection(file, section, Found(*rule, findings));
        } else if (rule->inLine != nullptr) {
            for (const CheckedLine& line : section.lines) {
                rule->inLine(file, section, line, Found(*rule, findings));
            }
        } else if (rule->inAction != nullptr) {
            ofActions.push_back(rule);
        }
    }
    ForEachAction(file, section, [&](const CheckedAction& action) {
        for (const Rule* const rule : ofActions) {
            rule->inAction(action, Found(*rule, findings));
        }
    });
}

}  // namespace

std::vector<Rule> Rules() {
    std::vector<Rule> rules;
    for (const auto part : {LoadRules(), RunRules()}) {
        rules.insert(rules.end(), part.begin(), part.end());
    }
    return rules;
}

const GroupWords& WordsOf(FindingGroup group) {
    return Groups[static_cast<std::size_t>(group)];
}

String PlaceWords(const FindingPlace& place) {
    String words = place.file + (place.line > 0 ? L":" + std::to_wstring(place.line) : L"") + L":";
    if (!place.section.empty()) {
        words += L" [" + place.section + L"]";
    }
    return place.entry.empty() ? words : words + L" " + place.entry;
}

bool EndsTest(const Finding& finding) {
    return finding.endsTest;
}

Found::Found(const Rule& rule, std::vector<Finding>& findings)
    : x_rule(rule), x_findings(findings), x_endsTest(rule.endsTest) {}

String FindingWords(const Finding& finding) {
    const String& text = finding.place.text;
    return PlaceWords(finding.place) + (text.empty() ? String() : L" " + QuotedLine(text)) + L": " +
           finding.meaning;
}

void Found::At(FindingPlace place, std::initializer_list<String> words) const {
    const std::vector<String> values(words);
    x_findings.push_back({&x_rule, std::move(place), Filled(x_rule.meaning, values),
                          Filled(x_rule.advice, values), x_endsTest});
}

void Found::At(const CheckedFile& file, const CheckedSection& section, const CheckedLine& line,
               std::initializer_list<String> words) const {
    const std::size_t equals = line.text.find(L'=');
    const bool hasKey = equals != String::npos;
    At({file.Input().path, section.FileLine(line.index), section.name,
        hasKey ? line.text.substr(0, equals) : String(),
        hasKey ? line.text.substr(equals + 1) : line.text},
       words);
}

std::vector<Finding> FindingsOf(const CheckedFile& file) {
    std::vector<Finding> findings;
    const std::vector<const Rule*> rules = RulesFor(file);
    for (const Rule* const rule : rules) {
        if (rule->inFile != nullptr) {
            rule->inFile(file, Found(*rule, findings));
        }
    }
    for (const CheckedSection& section : file.Sections()) {
        if (!section.isAgain) {  // otherwise its lines are told already
            LookAtSection(file, section, rules, findings);
        }
    }
    // those of a group stand in one table, so that their addresses are in its order
    std::ranges::stable_sort(findings, {}, [](const Finding& finding) {
        return std::tuple(finding.rule->group, finding.place.line, finding.rule);
    });
    return findings;
}

}  // namespace ace::workbench
