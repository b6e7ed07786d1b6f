#include <ace/dialogs/frm_gpib_error.h>

namespace ace {

namespace {

/// What a row of the table writes its details from.
struct Failure {
    const DeviceErrorSubject& subject;
    std::int32_t number;
    const String& text;
    ILanguage& language;
};

constexpr StringView LineEnd = L"\r\n";

/// The words of text `label`, `separator`, a tab and `value` on one line.
String Line(const Failure& failure, std::int32_t label, StringView separator, StringView value) {
    String line = failure.language.Text(label);
    line += separator;
    line += L'\t';
    line += value;
    line += LineEnd;
    return line;
}

/// Number and description of the error; the last line starts with the tab.
String ErrorLines(const Failure& failure) {
    return Line(failure, 9320, L"", std::to_wstring(failure.number)) + L"\t" + failure.text;
}

String DeviceDetails(const Failure& failure) {
    const auto* record = std::get_if<aceSetDevice>(&failure.subject);
    String details = Line(failure, 9322, L":",
                          record != nullptr ? record->DevName : std::get<String>(failure.subject));
    details += ErrorLines(failure);
    return details;
}

/// Intentional: the folder's label stands without a colon, unlike the file's.
String ProgramDetails(const Failure& failure) {
    const StringView program = std::get<aceRemote>(failure.subject).Program;
    const std::size_t backslash = program.rfind(L'\\');
    const bool hasFolder = backslash != StringView::npos;
    String details = Line(failure, 9329, L":", hasFolder ? program.substr(backslash + 1) : program);
    details += Line(failure, 9330, L"", hasFolder ? program.substr(0, backslash) : StringView());
    details += ErrorLines(failure);
    return details;
}

/// Endpoint and command as the record holds them. Intentional: a failed command shows neither
/// number nor description of the error.
String CommandDetails(const Failure& failure, std::int32_t label, StringView endpoint) {
    String details = Line(failure, label, L":", endpoint);
    details += Line(failure, 9325, L":", std::get<aceRemote>(failure.subject).Command);
    return details;
}

/// The address goes out as it is stored: the hundreds are the board.
String GpibDetails(const Failure& failure) {
    return CommandDetails(failure, 9324,
                          std::to_wstring(std::get<aceRemote>(failure.subject).GpibAddress));
}

String SerialDetails(const Failure& failure) {
    return CommandDetails(
        failure, 9326, L"COM" + std::to_wstring(std::get<aceRemote>(failure.subject).SerComPort));
}

String SocketDetails(const Failure& failure) {
    return CommandDetails(failure, 9327, std::get<aceRemote>(failure.subject).TcpHost);
}

bool IsDeviceRecord(const DeviceErrorSubject& subject) {
    return std::holds_alternative<aceSetDevice>(subject);
}

bool IsDeviceName(const DeviceErrorSubject& subject) {
    return std::holds_alternative<String>(subject);
}

/// With both texts set the command decides, whichever of the two failed.
bool IsProgram(const DeviceErrorSubject& subject) {
    const auto* record = std::get_if<aceRemote>(&subject);
    return record != nullptr && record->Command.empty() && !record->Program.empty();
}

template <std::int32_t Iface>
bool IsCommandOver(const DeviceErrorSubject& subject) {
    const auto* record = std::get_if<aceRemote>(&subject);
    return record != nullptr && !record->Command.empty() && record->Iface == Iface;
}

/// How the failure of one kind of action is shown.
struct ErrorRow {
    p_ActionTypes actionType;
    bool (*fits)(const DeviceErrorSubject&);
    std::int32_t heading;  ///< number of its text
    String (*details)(const Failure&);
    bool offersIgnoreAll;
};

constexpr ErrorRow ErrorRows[] = {
    {atSetDevice, IsDeviceRecord, 9321, DeviceDetails, true},
    {atTrackFreq, IsDeviceName, 9321, DeviceDetails, true},
    {atSwitchAmp, IsDeviceRecord, 9331, DeviceDetails, false},
    {atSwitchUnit, IsDeviceRecord, 9332, DeviceDetails, false},
    {atRemote, IsProgram, 9328, ProgramDetails, true},
    {atRemote, IsCommandOver<aceRemote::Gpib>, 9323, GpibDetails, true},
    {atRemote, IsCommandOver<aceRemote::Serial>, 9323, SerialDetails, true},
    {atRemote, IsCommandOver<aceRemote::TcpIp>, 9323, SocketDetails, true},
};

const ErrorRow* FindErrorRow(p_ActionTypes actionType, const DeviceErrorSubject& subject) {
    for (const ErrorRow& row : ErrorRows) {
        if (row.actionType == actionType && row.fits(subject)) {
            return &row;
        }
    }
    return nullptr;
}

}  // namespace

frmGpibError::frmGpibError(ThreadContext& context)
    : Form(L"frmGpibError", 9062, 5970.0F, 2355.0F), x_context(context) {
    txtError.multiLine = true;
    cmdIgnore.onClick = [this] { Hide(); };
    cmdIgnoreAll.onClick = [this] {
        x_ignoreAll = true;
        Hide();
    };
    cmdStopTest.onClick = [this] {
        x_stopTest = true;
        Hide();
    };
}

Boolean frmGpibError::ShowError(p_ActionTypes actionType, Boolean& ignoreAll,
                                const DeviceErrorSubject& parameter, std::int32_t errorNumber,
                                const String& errorText) {
    ILanguage& language = x_context.Language();
    language.TranslateForm(*this);
    x_stopTest = false;
    x_ignoreAll = ignoreAll;
    if (const ErrorRow* row = FindErrorRow(actionType, parameter)) {
        lblMessage.caption = language.Text(row->heading);
        txtError.text = row->details({parameter, errorNumber, errorText, language});
        cmdIgnoreAll.visible = row->offersIgnoreAll;
    }
    ShowModal(x_context.FormHost());
    ignoreAll = x_ignoreAll;
    return x_stopTest;
}

void frmGpibError::KeyPressed(std::int32_t key) {
    if (key == Keys::Escape) {
        cmdIgnore.Click();
    }
}

Boolean ShowDeviceError(ThreadContext& context, p_ActionTypes actionType, Boolean& ignoreAll,
                        const DeviceErrorSubject& subject, std::int32_t errorNumber,
                        const String& errorText) {
    return frmGpibError(context).ShowError(actionType, ignoreAll, subject, errorNumber, errorText);
}

}  // namespace ace
