/// The texts of the engine in English, for a host without language data of its own.
#pragma once

#include <span>

#include <ace/host/language.h>

namespace ace {

/// A text and its number.
struct NumberedText {
    std::int32_t number;
    StringView text;
};

/// All texts in the order of their numbers, each number once.
std::span<const NumberedText> EnglishTextTable();

/// Texts in English; a number without a text reads as empty.
class EnglishLanguage : public ILanguage {
  public:
    String Text(std::int32_t number) override;
};

}  // namespace ace
