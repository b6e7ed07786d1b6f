#include "workbench/session/set_up_reader.h"

#include <algorithm>

#include "workbench/files/place_text.h"
#include "workbench/words/outcome.h"
#include "workbench/words/slips.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

String Numbered(StringView word, std::int32_t number) {
    return String(word) + std::to_wstring(number);
}

std::optional<String> SetUpReader::Text(StringView section, StringView key) const {
    const std::optional<String> value = x_document.GetKey(section, key);
    return value ? std::optional(String(Trimmed(*value))) : std::nullopt;
}

std::optional<double> SetUpReader::Number(StringView section, StringView key) const {
    const std::optional<String> text = Text(section, key);
    const std::optional<double> number = text ? WholeNumber(*text) : std::nullopt;
    if (text && !number) {
        Refuse(section, key, L"\"" + *text + L"\" is no number");
    }
    return number;
}

std::optional<std::int32_t> SetUpReader::Integer(StringView section, StringView key,
                                                 std::int32_t least, std::int32_t most) const {
    const std::optional<double> number = Number(section, key);
    if (!number) {
        return std::nullopt;
    }
    if (*number < least || *number > most || *number != static_cast<std::int32_t>(*number)) {
        Refuse(section, key,
               L"this must be a whole number from " + std::to_wstring(least) + L" to " +
                   std::to_wstring(most));
    }
    return static_cast<std::int32_t>(*number);
}

std::vector<std::int32_t> SetUpReader::Integers(StringView section, StringView key) const {
    std::vector<std::int32_t> numbers;
    const String text = Text(section, key).value_or(String());
    for (StringView rest = text; !rest.empty();) {
        const std::size_t end = std::min(rest.find(L','), rest.size());
        const std::optional<std::int32_t> number = WholeInteger(rest.substr(0, end));
        if (!number || *number < 1) {
            Refuse(section, key, L"these must be numbers of frequencies from 1, separated by ,");
        }
        numbers.push_back(*number);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return numbers;
}

double SetUpReader::Needed(StringView section, StringView key) const {
    const std::optional<double> number = Number(section, key);
    if (!number) {
        Refuse(section, key, L"the sweep needs this key");
    }
    return *number;
}

void SetUpReader::Refuse(StringView section, StringView key, StringView why) const {
    RefuseFile(PlaceText(x_document, x_path, section, key) + L": " + String(why));
}

void SetUpReader::RefuseMissing(StringView key, const String& why) const {
    for (const String& line : x_document.GetSection(MainSection)) {
        const StringView name = Trimmed(StringView(line).substr(0, line.find(L'=')));
        if (IsSlipOf(name, key)) {
            Refuse(MainSection, name, L"did you mean " + String(key) + L"?");
        }
    }
    RefuseUse(PlaceText(x_document, x_path, MainSection, {}) + L": " + why);
}

}  // namespace ace::workbench
