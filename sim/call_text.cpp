#include "sim/call_text.h"

#include <ace/core/text.h>

namespace ace::sim {

namespace {

String ValueText(const Value& value) {
    if (std::holds_alternative<std::monostate>(value)) {
        return L"nothing";
    }
    if (const String* text = std::get_if<String>(&value)) {
        return Quoted(*text);
    }
    if (const DynArray<String>* texts = std::get_if<DynArray<String>>(&value)) {
        String list = L"[";
        for (const String& text : *texts) {
            list += (list.size() > 1 ? L", " : L"") + Quoted(text);
        }
        return list + L"]";
    }
    return FormatGeneral(value, L'.');
}

struct InWords {
    String operator()(bool value) const { return value ? L"true" : L"false"; }
    String operator()(std::int32_t value) const { return IntegerText(value); }
    String operator()(double value) const { return FormatGeneral(value, L'.'); }
    String operator()(StringView value) const { return Quoted(value); }
    String operator()(Words value) const { return String(value.text); }
    String operator()(const Value* value) const { return ValueText(*value); }
    String operator()(std::span<const Value> values) const {
        String list = L"[";
        for (const Value& value : values) {
            list += (list.size() > 1 ? L", " : L"") + ValueText(value);
        }
        return list + L"]";
    }
};

}  // namespace

String ArgumentText(const CallArgument& argument) {
    return std::visit(InWords{}, argument);
}

String ArgumentText(CallArguments arguments) {
    String text;
    for (const CallArgument& argument : arguments) {
        text += (text.empty() ? L"" : L", ") + ArgumentText(argument);
    }
    return text;
}

String PlainText(const CallArgument& argument) {
    const StringView* const text = std::get_if<StringView>(&argument);
    return text != nullptr ? String(*text) : ArgumentText(argument);
}

String Quoted(StringView text) {
    String quoted = L"\"";
    for (const wchar_t c : text) {
        switch (c) {
            case L'\r':
                quoted += L"\\r";
                break;
            case L'\n':
                quoted += L"\\n";
                break;
            case L'\t':
                quoted += L"\\t";
                break;
            default:
                if (c < L' ' || c == 127) {
                    quoted += L"\\x" + IntegerText(static_cast<std::int32_t>(c)) + L";";
                } else {
                    quoted += c;
                }
        }
    }
    return quoted + L"\"";
}

}  // namespace ace::sim
