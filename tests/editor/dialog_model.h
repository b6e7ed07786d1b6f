/// What an open dialog would store, for random sessions: read off its fields, and remembered where
/// no field shows it. It calls nothing of the engine.
#pragma once

#include <cmath>

#include <ace/host/forms.h>

#include "editor/dialog_files.h"

namespace ace::test {

// ---- fields ------------------------------------------------------------------------------------

inline const String& CaptionIn(const Form& form, StringView name) {
    return form.Find<Label>(name)->caption;
}
inline const String& TextIn(const Form& form, StringView name) {
    return form.Find<TextBox>(name)->text;
}
inline double ValueIn(const Form& form, StringView name) {
    return NumberIn(form.Find<ValueBox>(name)->text);
}
inline bool TickIn(const Form& form, StringView name) {
    return form.Find<CheckBox>(name)->ticked;
}
inline String ChosenIn(const Form& form, StringView name) {
    const DropDown& box = *form.Find<DropDown>(name);
    return box.listIndex < 0 ? box.otherText : box.list.at(static_cast<std::size_t>(box.listIndex));
}
inline int IndexIn(const Form& form, StringView name) {
    return form.Find<DropDown>(name)->listIndex;
}

// ---- the macros of the bench -------------------------------------------------------------------

struct ModelMacro {
    const wchar_t* program;
    bool loads;
    std::vector<std::int32_t> kinds;  ///< of its inputs: 3 for a table
};
inline const std::vector<ModelMacro> ModelMacros = {{L"none.mac", true, {}},
                                                    {L"one.mac", true, {0}},
                                                    {L"two.mac", true, {0, 3}},
                                                    {L"broken.mac", false, {}}};
inline const ModelMacro& MacroCalled(const String& program) {
    return *std::ranges::find(ModelMacros, program, &ModelMacro::program);
}

// ---- the dialog --------------------------------------------------------------------------------

/// A dialog that is expected, and then stands open.
struct DialogModel {
    int kind = 0;
    bool isNew = true;
    bool isEmission = false;  ///< of a template that follows frequencies
    String opened{};          ///< value of the line that is edited, with the mark of its section

    String wave{};       ///< the whole path of the sound
    String path{};       ///< the signal path
    String generator{};  ///< body of a generator's line
    std::vector<String> parameters{};
    bool settingsChanged = false;

    /// What the line says that no field shows.
    void Open() {
        const std::vector<String> fields = Split(InLine(opened), L",");
        if ((kind == atNotify || kind == atQuestion) && !isNew) {
            wave = fields[1];
        } else if (kind == atSetDevice && fields.size() > 2) {
            path = fields[2];
        } else if (kind == atTrackFreq && fields.size() > 4) {
            generator = InLine(opened);
        } else if (kind == atAPI && !isNew) {
            parameters = Split(opened, L"||");
            parameters.erase(parameters.begin());
        }
    }

    /// The value of the line that OK would store; none when it is refused.
    std::optional<String> Outcome(const Form& form) {
        switch (kind) {
            case atWait:
                return WaitOutcome(form);
            case atNotify:
            case atQuestion:
                return NotifyOutcome(form);
            case atComment:
                return Flag(TickIn(form, L"chkSwitchGenerator"));
            case atRemote:
                return RemoteOutcome(form);
            case atTrackFreq:
                return TrackOutcome(form);
            case atAPI:
                return MacroOutcome(form);
            default:
                return DeviceOutcome(form);
        }
    }
    /// A parameter comes into its place. True when it may stay there.
    bool KeepParameter(const Form& form, std::size_t tab, const String& text) {
        parameters.at(tab) = text;
        return CheckParameter(form, tab);
    }

  private:
    static std::optional<String> WaitOutcome(const Form& form) {
        const double seconds = ValueIn(form, L"txtWait");
        return seconds == 0.0 ? std::nullopt : std::optional(Fixed(seconds * 1000.0, 3));
    }
    std::optional<String> NotifyOutcome(const Form& form) const {
        const String& message = TextIn(form, L"txtMessage");
        const bool beep = TickIn(form, L"chkBeep");
        if (message.empty() && wave.empty() && !beep) {
            return std::nullopt;
        }
        return Escaped(message) + L"," + wave + L"," + Flag(beep);
    }
    static std::optional<String> RemoteOutcome(const Form& form) {
        const String& command = TextIn(form, L"txtGpibCommand");
        const String& program = TextIn(form, L"txtDll");
        const String end =
            program + L"," + Flag(TickIn(form, L"chkWaitForProgramCompleted")) + L",";
        if (command.empty()) {
            return program.empty() ? std::nullopt : std::optional(L",,,," + end);
        }
        const int iface = IndexIn(form, L"cboIface");
        if (iface == 2 && TextIn(form, L"txtHost").empty()) {
            return std::nullopt;
        }
        return Replaced(command, L",", L"\x01") + L"," + std::to_wstring(iface) + L"," +
               AddressIn(form, iface) + L"," + end;
    }
    static String AddressIn(const Form& form, int iface) {
        const String terminator = std::to_wstring(IndexIn(form, L"cboTerminator"));
        if (iface == 0) {
            const std::vector<String> bus = Split(ChosenIn(form, L"cboGpibAddress"), L":");
            return std::to_wstring(std::stoi(bus[0]) * 100 + std::stoi(bus[1])) + L"," + terminator;
        }
        if (iface == 1) {
            return std::to_wstring(IndexIn(form, L"cboComPort") + 1) + L"," + terminator;
        }
        return TextIn(form, L"txtHost") + L"," +
               std::to_wstring(std::lround(NumberIn(TextIn(form, L"txtTcpPort")))) + L":" +
               terminator;
    }

    // ---- devices -----------------------------------------------------------------------------

    std::optional<String> DeviceOutcome(const Form& form) const {
        const String& device = CaptionIn(form, L"lblDevice");
        const bool hasSettings = kind != atSwitchAmp && kind != atSwitchUnit;
        if (device == L"T(9147)" ||
            (hasSettings && CaptionIn(form, L"lblDeviceSett") == L"T(9148)")) {
            return std::nullopt;
        }
        if (kind == atSwitchAmp) {
            return device + L"," + std::to_wstring(IndexIn(form, L"cboSwitchAmp"));
        }
        if (kind == atSwitchUnit) {
            return device + L"," + ChosenIn(form, L"cboSUPaths");
        }
        const String section = device + L"," + SectionMark;
        return kind == atSetDevice ? section + (path.empty() ? L"" : L"," + path)
                                   : section + BoxesIn(form);
    }
    static String BoxesIn(const Form& form) {
        const auto tick = [&](StringView name) { return L"," + Flag(TickIn(form, name)); };
        const auto value = [&](StringView name) { return L"," + Fixed(ValueIn(form, name), 2); };
        return tick(L"chkStopTest") + tick(L"chkComment") + tick(L"chkNotify") +
               tick(L"chkCycleTime") + value(L"txtCycleTime") + tick(L"chkWait") +
               value(L"txtWaitTime") + tick(L"chkGotoLoadingPosition");
    }

    // ---- frequencies -------------------------------------------------------------------------

    std::optional<String> TrackOutcome(const Form& form) {
        if (!isEmission) {
            return opened;
        }
        if (form.Find<OptionGroup>(L"optTrackFrq")->index != 0) {
            return MonitorOutcome(form);
        }
        const String name = ChosenIn(form, L"cboGenerator");
        const FileBox& table = *form.Find<FileBox>(L"filLimitLine");
        if (name.empty() || table.fileName.empty()) {
            return std::nullopt;
        }
        const bool hasPath = IndexIn(form, L"cboSigPath") != 0;
        const String signalPath = ChosenIn(form, L"cboSigPath");
        return name + L"," + table.fileName + L"," + std::to_wstring(table.tableType) + L"," +
               std::to_wstring(table.tableMeasClass) + L"," +
               Flag(TickIn(form, L"chkAskGenOutputOn")) +
               (hasPath && !signalPath.empty() ? L"," + signalPath : L"") + HiddenMark;
    }
    /// The generator of the record stays, and it is told before a device that is followed.
    std::optional<String> MonitorOutcome(const Form& form) const {
        const double delay = ValueIn(form, L"txtDelayTime");
        const String device = ChosenIn(form, L"cboCANDriver");
        if (delay == 0.0 || device.empty()) {
            return std::nullopt;
        }
        return generator.empty() ? device + L"," + std::to_wstring(std::lround(delay))
                                 : generator + HiddenMark + device;
    }

    // ---- macros ------------------------------------------------------------------------------

    static const std::vector<std::int32_t>& KindsIn(const Form& form) {
        return MacroCalled(form.Find<FileBox>(L"filAPIProgram")->fileName).kinds;
    }
    static bool IsNumeric(const String& text) {
        return !text.empty() && text.find_first_not_of(L"0123456789.,-") == String::npos;
    }
    static bool IsVariable(const String& text) {
        return text.size() > 2 && text.front() == L'#' && text.back() == L'#';
    }
    /// What stays has a point.
    bool CheckParameter(const Form& form, std::size_t tab) {
        String& parameter = parameters.at(tab);
        if (KindsIn(form).at(tab) == 3) {
            return !parameter.empty();
        }
        const bool isGood = IsNumeric(parameter) || IsVariable(parameter);
        parameter = isGood ? Replaced(parameter, L",", L".") : parameter;
        return isGood;
    }
    std::optional<String> MacroOutcome(const Form& form) {
        String value = form.Find<FileBox>(L"filAPIProgram")->fileName;
        if (value.empty()) {
            return std::nullopt;
        }
        const TabStrip& strip = *form.Find<TabStrip>(L"tabAPIParameter");
        if (!KindsIn(form).empty()) {
            const auto tab = static_cast<std::size_t>(strip.current);
            parameters.at(tab) = KindsIn(form).at(tab) == 3
                                     ? form.Find<FileBox>(L"filAPIParameterTable")->fileName
                                     : TextIn(form, L"txtAPIParameterValue");
        }
        for (std::size_t tab = 0; tab < KindsIn(form).size(); ++tab) {
            if (!CheckParameter(form, tab)) {
                return std::nullopt;
            }
            value += L"||" + parameters[tab];
        }
        return value;
    }
};

}  // namespace ace::test
