/// One settings file of the host, opened for one call of the engine.
#pragma once

#include <vector>

#include <ace/host/value.h>

namespace ace {

/// Typed keys and whole sections of a settings file. Section and key names are compared without
/// regard to case. A reader that finds no section or key answers the default. Failures are run-time
/// errors with the host's own numbers. No operation lets messages run.
class ISettingsFile {
  public:
    virtual ~ISettingsFile() = default;

    virtual String GetString(const String& section, const String& key, const String& byDefault) = 0;
    virtual void SetString(const String& section, const String& key, const String& value) = 0;
    virtual double GetDouble(const String& section, const String& key, double byDefault) = 0;
    virtual void SetDouble(const String& section, const String& key, double value) = 0;
    virtual std::int32_t GetLong(const String& section, const String& key,
                                 std::int32_t byDefault) = 0;
    virtual void SetLong(const String& section, const String& key, std::int32_t value) = 0;
    virtual Boolean GetBoolean(const String& section, const String& key, Boolean byDefault) = 0;
    virtual void SetBoolean(const String& section, const String& key, Boolean value) = 0;
    /// The section's lines in file order, without line ends; none when it is empty or missing.
    virtual std::vector<String> GetSection(const String& section) = 0;
    /// Replaces the section by a text whose lines end with CR LF, or by an array of lines. The
    /// empty text leaves an empty section; nothing (`std::monostate`) deletes the section.
    virtual void SetSection(const String& section, const Value& content) = 0;

    /// The engine is done with the file and everything before went well: the place where a host
    /// writes what was changed. May raise; the engine passes that on. Called once, last. An object
    /// that goes without this call belongs to an operation that failed: its changes are dropped.
    virtual void Release() = 0;
};

/// An empty file that forgets what is written.
class DefaultSettingsFile : public ISettingsFile {
  public:
    String GetString(const String&, const String&, const String& byDefault) override {
        return byDefault;
    }
    void SetString(const String&, const String&, const String&) override {}
    double GetDouble(const String&, const String&, double byDefault) override { return byDefault; }
    void SetDouble(const String&, const String&, double) override {}
    std::int32_t GetLong(const String&, const String&, std::int32_t byDefault) override {
        return byDefault;
    }
    void SetLong(const String&, const String&, std::int32_t) override {}
    Boolean GetBoolean(const String&, const String&, Boolean byDefault) override {
        return byDefault;
    }
    void SetBoolean(const String&, const String&, Boolean) override {}
    std::vector<String> GetSection(const String&) override { return {}; }
    void SetSection(const String&, const Value&) override {}
    void Release() override {}
};

}  // namespace ace
