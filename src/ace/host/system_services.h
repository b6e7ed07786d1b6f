/// Services of the host's system: settings files, timed messages, the current test.
#pragma once

#include <memory>

#include <ace/host/cal_table.h>
#include <ace/host/devices.h>
#include <ace/host/settings_file.h>
#include <ace/host/test_info.h>

namespace ace {

/// What the engine asks of the host at large. Objects handed out are shared with the host. Only
/// `ShowTimedMessage` lets messages run.
class ISystemServices {
  public:
    virtual ~ISystemServices() = default;

    /// Opens the settings file `name` as the host's file type `kind`. `mode` is always 10, the two
    /// last arguments always 0; their meaning is the host's. No object when there is no such file:
    /// the engine then ends in silence. A file that is there but can't be read is an error.
    virtual std::shared_ptr<ISettingsFile> OpenSettingsFile(std::int32_t kind, std::int32_t mode,
                                                            const String& name, std::int32_t third,
                                                            std::int32_t fourth) = 0;
    /// The file at `path` is usable. The two flags are always true and false.
    virtual bool FileIsUsable(const String& path, bool first, bool second) = 0;
    /// Shows `text` as a message box for `milliseconds` and returns afterwards; 0 is allowed.
    /// Messages run meanwhile. `style` 64 is information; the host may change it.
    virtual void ShowTimedMessage(const String& text, std::int32_t& style, const String& title,
                                  std::int32_t milliseconds) = 0;
    /// The test that the host runs at present; none is allowed.
    virtual std::shared_ptr<ITestInfo> GetCurrentTest() = 0;
    /// The same, as the actions that follow a frequency ask for it; by default it is
    /// `GetCurrentTest`.
    virtual std::shared_ptr<ITestInfo> CurrentTest() { return GetCurrentTest(); }
    /// The calibration table of that kind, name and measurement class; none when there is no such.
    /// `mode` is always 10; `flag` comes in false and may be changed, which nothing reads.
    virtual std::shared_ptr<ICalTable> GetTable(ITableType type, std::int32_t mode,
                                                const String& name, ITableMeasClass measClass,
                                                bool& flag) = 0;
    /// The system's configuration.
    virtual std::shared_ptr<ISettingsFile> GetGlobalSettings() = 0;
    /// Shows a busy text; the empty text clears it.
    virtual void SetProgressText(const String& text) = 0;
    /// Writes a value of the synchronisation file "MacroSync.ini", which only the host touches.
    virtual void WriteMacroSync(std::int32_t group, std::int32_t key, const String& value) = 0;
    /// Reads a value of that file.
    virtual String ReadMacroSync(std::int32_t key) = 0;
};

/// Has no files, no test, no table, and shows nothing.
class DefaultSystemServices : public ISystemServices {
  public:
    std::shared_ptr<ISettingsFile> OpenSettingsFile(std::int32_t, std::int32_t, const String&,
                                                    std::int32_t, std::int32_t) override {
        return nullptr;
    }
    bool FileIsUsable(const String&, bool, bool) override { return false; }
    void ShowTimedMessage(const String&, std::int32_t&, const String&, std::int32_t) override {}
    std::shared_ptr<ITestInfo> GetCurrentTest() override { return nullptr; }
    std::shared_ptr<ICalTable> GetTable(ITableType, std::int32_t, const String&, ITableMeasClass,
                                        bool&) override {
        return nullptr;
    }
    std::shared_ptr<ISettingsFile> GetGlobalSettings() override {
        return std::make_shared<DefaultSettingsFile>();
    }
    void SetProgressText(const String&) override {}
    void WriteMacroSync(std::int32_t, std::int32_t, const String&) override {}
    String ReadMacroSync(std::int32_t) override { return {}; }
};

}  // namespace ace
