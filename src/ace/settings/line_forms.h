/// The forms of the values behind the keywords as data: for checks of a file. The readers go by the
/// same places, one field a statement.
#pragma once

#include <optional>
#include <span>

#include <ace/settings/line_fields.h>

namespace ace {

/// What a reader makes of the text of a field.
enum class FieldReading : std::uint8_t {
    Text,
    Number,        ///< the number at its beginning; 0 without one
    StrictNumber,  ///< anything but a number ends the load
    Truth,         ///< anything but a number, true or false ends the load
    Flag,          ///< 1 is yes, anything else no
    Port,          ///< a number; in an enter list with the code of the terminator behind a ":"
    Unread,
};

/// One field of a value. What is unread has no field of a record.
struct FormField {
    FieldReading reading = FieldReading::Unread;
    LineField field{};
};

/// The fields of a value between its commas, in their order.
struct LineForm {
    std::span<const FormField> fields;
    bool isOpen = false;  ///< commas behind the last one are part of it
};

/// The two parts of the fourth field of a command over TCP/IP.
struct PortText {
    StringView port;
    std::optional<StringView> terminator;  ///< none without ":"
};
inline PortText SplitPort(StringView field) {
    const std::size_t colon = field.find(L':');
    return colon == StringView::npos ? PortText{field, std::nullopt}
                                     : PortText{field.substr(0, colon), field.substr(colon + 1)};
}

/// Each answers the form of a value behind the keywords of its name.
namespace LineForms {

LineForm Wait(StringView value);
LineForm Notify(StringView value);
LineForm Comment(StringView value);
/// By the transport, which the second field says; error 6 or 13 where the reader raises it.
LineForm Remote(StringView value);
LineForm Gpib(StringView value);
LineForm SetDevice(StringView value);
LineForm CheckEut(StringView value);
LineForm SwitchAmp(StringView value);
LineForm SwitchUnit(StringView value);
/// That of a generator from five fields on, otherwise that of a monitoring device.
LineForm TrackFreq(StringView value);
LineForm SyncGen(StringView value);
/// One text with all its commas, or nothing that is read.
LineForm Whole(StringView value);

}  // namespace LineForms

}  // namespace ace
