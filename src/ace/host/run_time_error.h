/// Run-time errors: the one way in which a failure travels through the engine and to the host.
#pragma once

#include <array>
#include <exception>
#include <memory>

#include <ace/host/basic_types.h>

namespace ace {

/// A failure with the number by which every party knows it. Thrown by the engine and by host
/// services alike; handlers decide by `Number()` alone. Copies share their texts and allocate
/// nothing, so that an error travels on when there is no memory left.
class RunTimeError : public std::exception {
  public:
    /// `source` names who raised it; `helpFile` goes along unread. Both may be empty.
    explicit RunTimeError(std::int32_t number, String description = {}, String source = {},
                          String helpFile = {});

    std::int32_t Number() const { return x_number; }
    const String& Description() const { return TextOf(x_description); }
    const String& Source() const { return TextOf(x_source); }
    const String& HelpFile() const { return TextOf(x_helpFile); }
    /// The same number and description, with neither source nor help file. Allocates nothing.
    RunTimeError WithoutSource() const;
    /// "run-time error <number>", for handlers that know nothing of this class.
    const char* what() const noexcept override { return x_what.data(); }

  private:
    using Text = std::shared_ptr<const String>;  ///< none for the empty text

    static Text Shared(String&& text);
    static const String& TextOf(const Text& text);

    std::int32_t x_number;
    Text x_description;
    Text x_source;
    Text x_helpFile;
    std::array<char, 32> x_what{};  ///< the longest number leaves a rest
};

/// The numbers that the engine and the classes of its package raise themselves.
namespace Errors {
inline constexpr std::int32_t InvalidProcedureCall = 5;
inline constexpr std::int32_t Overflow = 6;
inline constexpr std::int32_t OutOfMemory = 7;
inline constexpr std::int32_t SubscriptOutOfRange = 9;
inline constexpr std::int32_t ArrayInUse = 10;
inline constexpr std::int32_t TypeMismatch = 13;
/// A program that isn't there, as the default platform says of all.
inline constexpr std::int32_t NoSuchFile = 53;
/// A failure that carries no number of its own, such as a foreign exception out of a host service.
inline constexpr std::int32_t Internal = 51;
inline constexpr std::int32_t ObjectNotSet = 91;
/// A node or an item with that key is there already, as every tree and list says.
inline constexpr std::int32_t KeyInUse = 457;
/// A device, bus or connection does not come to life.
inline constexpr std::int32_t DeviceFailed = 4010;
}  // namespace Errors

/// One of the numbers above with its standing description; `DeviceFailed` has none, because its own
/// tells the case. Made at the start of the program, so that it costs no memory when there is none.
RunTimeError StandingError(std::int32_t number);
/// Raises that error.
[[noreturn]] void Raise(std::int32_t number);

}  // namespace ace
