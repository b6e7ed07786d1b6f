/// Settings files in memory.
#pragma once

#include <map>
#include <optional>
#include <set>

#include <ace/host/settings_file.h>

namespace ace::sim {

class SimHost;

/// Section names compare without regard to case, as those of real settings files do.
struct NameLess {
    bool operator()(const String& a, const String& b) const;
};

/// The sections of one file, each as its lines without line ends.
using SimSections = std::map<String, std::vector<String>, NameLess>;

/// Splits a text whose lines end with CR LF or LF into sections; lines before the first section are
/// an error of whoever wrote the test.
SimSections ParseSections(StringView text);

/// One opened file: works on a copy of the sections. When it is released, the sections that were
/// changed through it go back, and what others changed meanwhile stays.
class SimSettingsFile : public ISettingsFile {
  public:
    SimSettingsFile(SimHost& host, String name);

    String GetString(const String& section, const String& key, const String& byDefault) override;
    void SetString(const String& section, const String& key, const String& value) override;
    double GetDouble(const String& section, const String& key, double byDefault) override;
    void SetDouble(const String& section, const String& key, double value) override;
    std::int32_t GetLong(const String& section, const String& key, std::int32_t byDefault) override;
    void SetLong(const String& section, const String& key, std::int32_t value) override;
    Boolean GetBoolean(const String& section, const String& key, Boolean byDefault) override;
    void SetBoolean(const String& section, const String& key, Boolean value) override;
    std::vector<String> GetSection(const String& section) override;
    void SetSection(const String& section, const Value& content) override;
    void Release() override;

  private:
    std::vector<String>& Changing(const String& section);
    std::optional<String> Find(const String& section, const String& key) const;
    void Put(const String& section, const String& key, const String& value);

    SimHost& x_host;
    String x_name;
    SimSections x_sections;
    std::set<String, NameLess> x_changed;
};

}  // namespace ace::sim
