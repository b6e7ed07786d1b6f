/// Arguments of a host call: as they are, and in words for whoever asks.
#pragma once

#include <array>
#include <span>
#include <variant>

#include <ace/host/value.h>

namespace ace::sim {

/// Words that stand in a journal without quotes.
struct Words {
    StringView text;
};

/// One argument of a host call. Texts, values and lists of values stay where the caller has them,
/// so an argument is to be looked at only while the call lasts.
using CallArgument = std::variant<bool, std::int32_t, double, StringView, Words, const Value*,
                                  std::span<const Value>>;
using CallArguments = std::span<const CallArgument>;

template <class Argument>
CallArgument AsArgument(const Argument& argument) {
    if constexpr (std::is_same_v<Argument, Value>) {
        return &argument;
    } else if constexpr (std::is_same_v<Argument, Boolean>) {
        return static_cast<bool>(argument);
    } else {
        return argument;
    }
}

/// The arguments of one call. No word is made and no text copied: the answer serves as
/// `CallArguments` as long as the arguments live.
template <class... Arguments>
std::array<CallArgument, sizeof...(Arguments)> CallText(const Arguments&... arguments) {
    return {AsArgument(arguments)...};
}

/// An argument as the journal shows it: texts in quotes, arrays in brackets, no value as the word
/// "nothing".
String ArgumentText(const CallArgument& argument);
/// All of them, separated by ", ".
String ArgumentText(CallArguments arguments);
/// An argument as it is: texts without quotes.
String PlainText(const CallArgument& argument);

/// A text as the journal shows it: in quotes, with line ends and other control characters visible.
String Quoted(StringView text);

}  // namespace ace::sim
