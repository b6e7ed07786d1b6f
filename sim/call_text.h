/// Arguments of a host call as the journal shows them.
#pragma once

#include <type_traits>
#include <vector>

#include <ace/core/text.h>

#include "sim/journal.h"

namespace ace::sim {

inline String ArgumentText(bool value) {
    return value ? L"true" : L"false";
}
inline String ArgumentText(Boolean value) {
    return ArgumentText(static_cast<bool>(value));
}
inline String ArgumentText(std::int16_t value) {
    return std::to_wstring(value);
}
inline String ArgumentText(std::int32_t value) {
    return std::to_wstring(value);
}
inline String ArgumentText(double value) {
    return FormatGeneral(value, L'.');
}
inline String ArgumentText(StringView value) {
    return Quoted(value);
}
inline String ArgumentText(const String& value) {
    return Quoted(value);
}
inline String ArgumentText(const wchar_t* value) {
    return Quoted(value);
}
/// Texts in quotes, arrays of texts in brackets, nothing as the word.
String ArgumentText(const Value& value);

/// The arguments of one call: as the journal's text, and each as it is, so that a reader of the
/// journal has to take no text apart.
struct CallArguments {
    CallArguments() = default;
    CallArguments(String asText) : text(std::move(asText)) {}

    String text;                 ///< separated by ", "
    std::vector<String> values;  ///< texts without quotes; empty when only the text is known
};

/// An argument as it is: texts without quotes.
template <class Argument>
String PlainText(const Argument& argument) {
    if constexpr (std::is_convertible_v<const Argument&, StringView>) {
        return String(StringView(argument));
    } else {
        return ArgumentText(argument);
    }
}

template <class... Arguments>
CallArguments CallText(const Arguments&... arguments) {
    CallArguments call;
    ((call.text += (call.text.empty() ? L"" : L", ") + ArgumentText(arguments)), ...);
    call.values = {PlainText(arguments)...};
    return call;
}

}  // namespace ace::sim
