#include <algorithm>

#include <ace/host/english_language.h>

namespace ace {

namespace {

// Some texts stand in more than one place, and what is put in front of or behind a text differs
// from place to place; a blank at an end and a colon that belong to the text are wanted.
constexpr NumberedText Texts[] = {
    {6, L"OK"},
    {3021, L"Check that the device is switched on, connected and set up in the device list."},
    {3350, L"The device does not respond, or no connection to it can be made."},

    // commands on an action and on a moment
    {9011, L"Edit..."},
    {9012, L"Delete"},
    {9013, L"Delete all actions"},
    {9014, L"Move up"},
    {9015, L"Move down"},
    {9016, L"Copy"},
    {9017, L"Paste"},

    {9021, L"Actions"},
    {9022, L"Close without keeping the changes to this action?"},

    // the kinds that are offered
    {9031, L"Set device"},
    {9032, L"Remote command"},
    {9033, L"Wait"},
    {9034, L"Notify"},
    {9035, L"Check EUT"},
    {9037, L"Track frequency"},
    {9038, L"Protect receivers"},
    {9039, L"Comment"},
    {9040, L"Stop test"},
    {9041, L"Stop level sweep"},
    {9042, L"Go to single measurement"},
    {9044, L"Please wait."},

    // moments
    {9051, L"At the start of the test"},
    {9052, L"At every frequency"},
    {9053, L"Subrange"},
    {9054, L"On entering the subrange"},
    {9055, L"On leaving the subrange"},
    {9056, L"At the end of the test"},
    {9057, L"On no-go"},
    {9058, L"Step no."},

    // titles of action lines; 9062 is also the title of the box that tells of a failed device
    {9061, L"Set device"},
    {9062, L"Remote"},
    {9063, L"Wait"},
    {9064, L"Notify"},
    {9065, L"Check EUT"},
    {9066, L"Track frequency"},
    {9068, L"Protect receivers"},
    {9069, L"Take a comment"},
    {9070, L"Stop test"},
    {9071, L"Stop level sweep"},
    {9072, L"NB/BB evaluation to ETSI"},
    {9073, L"Switch amplifier"},
    {9074, L"Switch unit"},
    {9075, L"On trigger"},
    {9076, L"On return to go"},
    {9077, L"Park accessories"},
    {9078, L"API macro"},

    // Subtests by their position. The first is also the remark behind a comment that switches the
    // generator off, the eighth also a moment of every monitoring test.
    {9080, L"Subtest 1 / generator off"},
    {9081, L"Subtest 2"},
    {9082, L"Subtest 3"},
    {9083, L"Subtest 4"},
    {9084, L"Subtest 5"},
    {9085, L"Subtest 6"},
    {9086, L"Subtest 7"},
    {9087, L"After each level step"},
    {9088, L"Subtest 9"},
    {9089, L"Subtest 10"},
    {9090, L"Before the subtest"},
    {9091, L"After the subtest"},
    {9092, L"At the start of the test sequence"},
    {9093, L"At the end of the test sequence"},
    {9094, L"Before the test"},
    {9095, L"After the test"},
    {9096, L"At the start of the azimuth chart"},
    {9097, L"At the end of the azimuth chart"},
    {9098, L"Before the test loop"},
    {9099, L"After the test loop"},
    {9101, L"Test "},  // the number follows at once
    {9103, L"At every frequency of the azimuth chart"},
    {9104, L"Test loop"},

    // the action dialog
    {9113, L"<none>"},
    {9121, L"Notify"},
    {9123, L"Sound"},
    {9124, L"Beep"},
    {9125, L"Comment"},
    {9141, L"Set device"},
    {9142, L"Check EUT"},
    {9147, L"<no device>"},
    {9148, L"<no settings>"},
    {9149, L"Click to edit the device's settings, right-click to choose another device"},
    {9151, L"The device list has no monitoring device that can be used for this action."},
    {9154, L"The device list has no device of the kind that this action needs."},
    {9155, L"Amplifier state"},
    {9162, L"Track frequency"},

    {9183, L"The API macro has failed"},

    // input that is refused
    {9200, L"Check your input"},
    {9201, L"Enter a value from yyy to xxx."},
    {9202, L"Enter a message, or choose a sound file or the beep."},
    {9203, L"Enter a command, or choose a program."},
    {9204, L"Enter the name or address of the remote host."},
    {9205, L"Choose a device."},
    {9206, L"Choose a generator."},
    {9207, L"Choose a level table."},
    {9208, L"The device has no settings yet. Edit its settings first."},
    {9209, L"Choose an API program."},

    // the operator's boxes
    {9312, L"Stop test"},
    {9313, L"Stops the test"},
    {9314, L"Ignore"},
    {9315, L"Goes on with the test; the next failure of this action is shown again"},
    {9316, L"Ignore all"},
    {9317,
     L"Goes on with the test; failures of this action are not shown again until the next test"},
    {9320, L"Error:"},
    {9321, L"A device could not be used."},
    {9322, L"Device"},
    {9323, L"A remote command could not be sent."},
    {9324, L"GPIB address"},
    {9325, L"Command"},
    {9326, L"Serial port"},
    {9327, L"Remote host"},
    {9328, L"A program could not be started."},
    {9329, L"Program"},
    {9330, L"Folder:"},
    {9331, L"An amplifier could not be switched."},
    {9332, L"A switch unit could not be switched."},
    {9351, L"Message from the test"},

    // Starts of the status line. A blank follows the first one, the number or name of the endpoint
    // follows the next three at once, and the last one stands alone.
    {9410, L"Wait"},
    {9411, L"GPIB "},
    {9412, L"RS232 COM"},
    {9413, L"TCP/IP "},
    {9414, L"Starting a program"},
    {9420, L"%1 reports a failure of the EUT"},
    {9421, L"EUT failure"},
    {9430, L"Actions"},
    {9431, L"Track frequency"},
    {9432, L"Switch on the RF output of the generator during the test?"},

    {12041, L"<new settings>"},
    {18153, L"Actions"},
    {21000, L"Channel"},
    {21093, L"Enter a number or a # variable as the value of the parameter."},
    {21094, L"Choose a table for the parameter."},
    {24500, L"API macro"},
    {24597, L"The API program \"#Name\" cannot be loaded."},
};
static_assert(std::ranges::adjacent_find(Texts, std::ranges::greater_equal{},
                                         &NumberedText::number) == std::end(Texts),
              "the texts stand in the order of their numbers");

}  // namespace

std::span<const NumberedText> EnglishTextTable() {
    return Texts;
}

String EnglishLanguage::Text(std::int32_t number) {
    const auto* row = std::ranges::lower_bound(Texts, number, {}, &NumberedText::number);
    return row != std::end(Texts) && row->number == number ? String(row->text) : String();
}

}  // namespace ace
