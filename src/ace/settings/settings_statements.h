/// One settings file in the hands of one operation.
#pragma once

#include <ace/core/operation.h>

namespace ace {

struct SetPlace;

/// The steps of loading and saving. Each is one statement of the operation: reported when it fails,
/// and run again when the host says so.
class SettingsStatements {
  public:
    SettingsStatements(EngineState& state, ISettingsFile& settings, const Statements& stmt)
        : x_state(state), x_settings(settings), x_stmt(stmt) {}

    EngineState& State() const { return x_state; }
    template <class Statement>
    decltype(auto) Do(Statement&& statement, std::int32_t line = __builtin_LINE()) const {
        return x_stmt(std::forward<Statement>(statement), line);
    }

    /// Empties the lists of a fixed set, the fourth one only where the row says so, and reads it.
    void ReadFixed(const FixedSet& fixed) const;
    /// Reads a section into an element, which stays where it is meanwhile.
    void ReadElement(DynArray<p_Subrange>& sets, std::int32_t index, const String& section) const;
    /// Writes a section from the lists of a set, which stay as they are meanwhile. Where the set is
    /// an element, the caller holds the array.
    void WriteLists(const String& section, const p_Subrange& set) const;
    void DeleteSection(const String& section) const;

    String GetString(const String& section, StringView key) const;  ///< default empty
    std::int32_t GetLong(const String& section, StringView key, std::int32_t byDefault) const;
    double GetDouble(const String& section, StringView key, double byDefault) const;
    Boolean GetBoolean(const String& section, StringView key) const;  ///< default false
    void SetString(const String& section, StringView key, const String& value) const;
    void SetLong(const String& section, StringView key, std::int32_t value) const;
    void SetDouble(const String& section, StringView key, double value) const;
    void SetBoolean(const String& section, StringView key, Boolean value) const;

  private:
    void ReadSet(const SetPlace& place, const String& section, p_Subrange& set) const;

    EngineState& x_state;
    ISettingsFile& x_settings;
    const Statements& x_stmt;
};

}  // namespace ace
