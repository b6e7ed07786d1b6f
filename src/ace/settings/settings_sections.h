/// The sections of a module's settings file, and the file itself.
#pragma once

#include <ace/core/thread_context.h>

namespace ace {

/// The keys that are read and never written: they belong to the host.
struct HostKeys {
    static constexpr StringView Section = L"General";
    /// Truth of an emission file: a system check is under way.
    static constexpr StringView SystemCheck = L"SystemCheck";
    /// Long keys of a single test's file: the template measures emission when the first is
    /// `EmissionTemplate` or the second `EmissionMeasurement`.
    static constexpr StringView TemplateType = L"TemplateType";
    static constexpr StringView MeasurementType = L"MeasurementType";
    static constexpr std::int32_t EmissionTemplate = 4;
    static constexpr std::int32_t EmissionMeasurement = 3;
};

/// Reads a module's lists from its file into the store and keeps the file's name for
/// `GetSettFile`. The numbered sections 1 to `subRanges` are read; for `aceVKSDUT` it is the
/// template number, and the number of rows comes back in it. Without settings object, or with a
/// kind outside the members, nothing is read. An error ends the load at its line; what was read
/// before it stays. `ThreadContext::LineObserver` is told of each line. Handled.
void ReadActionLists(EngineState& state, const String& fileName, std::int32_t& subRanges,
                     aceModul moduleKind);

/// Writes a module's lists, deletes the sections that have become superfluous, clears the module's
/// `Change` flag and releases the file. Without settings object nothing happens. Handled.
void WriteActionLists(EngineState& state, const String& fileName, aceModul moduleKind);

/// Opens the file that `moduleKind` was read from last; no object for a kind outside the members or
/// when the host gives none. The caller releases it. Errors come as the host raised them.
std::shared_ptr<ISettingsFile> OpenModuleSettings(ThreadContext& context, aceModul moduleKind);

/// The same for the kind that the object serves. Handled.
std::shared_ptr<ISettingsFile> GetSettFile(EngineState& state);
/// Appends the name of the section in which a device's settings stand, for the number of an action.
void AppendDeviceSection(String& text, std::int32_t number);

}  // namespace ace
