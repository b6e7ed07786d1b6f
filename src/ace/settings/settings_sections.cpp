#include <ace/core/actions_engine.h>
#include <ace/core/held_lists.h>
#include <ace/core/text.h>
#include <ace/settings/action_line.h>
#include <ace/settings/settings_sections.h>
#include <ace/settings/wireless_sections.h>

namespace ace {

namespace {

std::shared_ptr<ISettingsFile> Open(ThreadContext& context, std::int32_t kind, const String& name) {
    return context.SystemServices().OpenSettingsFile(kind, OpenMode, name, 0, 0);
}

String SectionOf(const NumberedSets& numbered, std::int64_t number) {
    return String(numbered.sectionWord) + std::to_wstring(number);
}

/// The host's number of sets decides, not what the file holds.
void ReadNumbered(const SettingsStatements& file, const NumberedSets& numbered,
                  std::int32_t subRanges) {
    EngineState& state = file.State();
    DynArray<p_Subrange>& sets = state.*numbered.sets;
    if (subRanges < 1) {
        file.Do([&] { sets.Erase(); });
    } else {
        file.Do([&] { sets.Redim(0, subRanges - 1); });
    }
    state.*numbered.count = subRanges;
    state.SavedCount.*numbered.saved = subRanges;
    for (std::int32_t i = 0; i < subRanges; ++i) {
        file.ReadElement(sets, i, SectionOf(numbered, i + 1));
    }
}

/// Intentional: deletes one section more than there can be.
void WriteNumbered(const SettingsStatements& file, const NumberedSets& numbered) {
    EngineState& state = file.State();
    const std::int32_t count = state.*numbered.count;
    for (std::int32_t i = 0; i < count; ++i) {
        const DynArray<p_Subrange>::Hold hold(state.*numbered.sets);
        file.Do([&] { file.WriteLists(SectionOf(numbered, i + 1), (state.*numbered.sets)[i]); });
    }
    const std::int64_t saved = state.SavedCount.*numbered.saved;
    if (count < saved) {
        for (std::int64_t number = std::int64_t{count} + 1; number <= saved + 1; ++number) {
            file.DeleteSection(SectionOf(numbered, number));
        }
    }
    state.SavedCount.*numbered.saved = count;
}

void ReadPlainModule(const SettingsStatements& file, const ModuleRow& module,
                     std::int32_t& subRanges) {
    for (const FixedSet& fixed : module.AllFixed()) {
        file.ReadFixed(fixed);
    }
    for (const NumberedSets& numbered : module.AllNumbered()) {
        ReadNumbered(file, numbered, subRanges);
    }
}

void WritePlainModule(const SettingsStatements& file, const ModuleRow& module) {
    EngineState& state = file.State();
    for (const FixedSet& fixed : module.AllFixed()) {
        file.WriteLists(String(fixed.section), state.*fixed.set);
    }
    for (const NumberedSets& numbered : module.AllNumbered()) {
        WriteNumbered(file, numbered);
    }
    state.ChangeFlags[static_cast<std::size_t>(module.moduleKind)] = false;
}

/// A key of the host's that never fails a load: one that can't be read is reported and counts as 0.
std::int32_t HostLong(const SettingsStatements& file, StringView key) {
    std::int32_t value = 0;
    ResumeNext next;
    next([&] { value = file.GetLong(String(HostKeys::Section), key, 0); });
    return value;
}

/// What the host's own keys tell about the module.
void ReadHostKeys(const SettingsStatements& file, aceModul moduleKind) {
    EngineState& state = file.State();
    if (moduleKind == aceEMIAutoTemplate) {
        state.Context.SystemCheck =
            file.GetBoolean(String(HostKeys::Section), HostKeys::SystemCheck);
    } else if (moduleKind == aceTemplate) {
        const std::int32_t type = HostLong(file, HostKeys::TemplateType);
        const std::int32_t measurement = HostLong(file, HostKeys::MeasurementType);
        state.EmiTemplate =
            type == HostKeys::EmissionTemplate || measurement == HostKeys::EmissionMeasurement;
    }
}

/// Where the number counts lists, one that no set-up needs is refused before memory is asked for
/// and before anything is replaced. For the matrix it is a template's number, which may be any.
void RequirePossibleNumber(const ModuleRow& module, std::int32_t subRanges) {
    const bool countsLists = !module.AllNumbered().empty() && module.moduleKind != aceVKSDUT;
    if (countsLists && subRanges > MostEntries) {
        Raise(Errors::OutOfMemory);
    }
}

/// Before a load replaces anything: all that it will replace is free. A matrix has its global lists
/// read for one template alone.
void RequireFreeForLoad(const EngineState& state, std::int32_t moduleKind, std::int32_t subRanges) {
    if (moduleKind == aceVKSDUT && subRanges != GlobalTemplate) {
        RequireFree(state.VKSSteps);
    } else {
        RequireFreeModule(state, moduleKind);
    }
}

void ReadModule(const SettingsStatements& file, const ModuleRow& module, std::int32_t& subRanges) {
    switch (module.moduleKind) {
        case aceVKSTemplate:
            ReadWirelessTemplate(file, subRanges);
            break;
        case aceVKSDUT:
            ReadMatrix(file, subRanges);
            break;
        default:
            ReadPlainModule(file, module, subRanges);
            ReadHostKeys(file, module.moduleKind);
            break;
    }
}

void WriteModule(const SettingsStatements& file, const ModuleRow& module) {
    switch (module.moduleKind) {
        case aceVKSTemplate:
            WriteWirelessTemplate(file);
            break;
        case aceVKSDUT:
            WriteMatrix(file);
            break;
        default:
            WritePlainModule(file, module);
            break;
    }
}

}  // namespace

void ReadActionLists(EngineState& state, const String& fileName, std::int32_t& subRanges,
                     aceModul moduleKind) {
    Guarded(state.Context, [&](const Statements& stmt) {
        const ModuleRow* module = FindModule(moduleKind);
        if (module == nullptr) {
            return;
        }
        state.Context.ModuleFileNames[static_cast<std::size_t>(module->nameRow)] = fileName;
        const std::shared_ptr<ISettingsFile> settings =
            stmt([&] { return Open(state.Context, module->readKind, fileName); });
        if (!settings) {
            return;
        }
        stmt([&] { RequirePossibleNumber(*module, subRanges); });
        ReadModule(SettingsStatements(state, *settings, stmt), *module, subRanges);
        stmt([&] { settings->Release(); });
    });
}

void WriteActionLists(EngineState& state, const String& fileName, aceModul moduleKind) {
    Guarded(state.Context, [&](const Statements& stmt) {
        const std::shared_ptr<ISettingsFile> settings =
            stmt([&] { return Open(state.Context, WriteKind, fileName); });
        if (!settings) {
            return;
        }
        if (const ModuleRow* module = FindModule(moduleKind)) {
            WriteModule(SettingsStatements(state, *settings, stmt), *module);
        }
        stmt([&] { settings->Release(); });
    });
}

std::shared_ptr<ISettingsFile> OpenModuleSettings(ThreadContext& context, aceModul moduleKind) {
    const ModuleRow* module = FindModule(moduleKind);
    if (module == nullptr) {
        return nullptr;
    }
    return Open(context, module->settFileKind,
                context.ModuleFileNames[static_cast<std::size_t>(module->nameRow)]);
}

std::shared_ptr<ISettingsFile> GetSettFile(EngineState& state) {
    return Guarded(state.Context, [&](const Statements& stmt) {
        return stmt([&] { return OpenModuleSettings(state.Context, state.Modul); });
    });
}

void AppendDeviceSection(String& text, std::int32_t number) {
    text += L"Actions";
    AppendInteger(text, number);
    text += L"-Device";
}

void aceActionsEngine::LoadActions(const String& FileName, std::int32_t SubRanges, aceModul Modul) {
    const std::shared_ptr<EngineState> state = x_state;
    Guarded(state->Context, [&](const Statements& stmt) {
        stmt([&] { RequireFreeForLoad(*state, Modul, SubRanges); });
        state->FileName = FileName;
        state->Modul = Modul;
        const ModuleRow* module = FindModule(Modul);
        state->IsAutoModule = module != nullptr && module->isAutoModule;
        std::int32_t subRanges = SubRanges;
        stmt([&] { ReadActionLists(*state, state->FileName, subRanges, Modul); });
    });
}

void aceActionsEngine::SaveActions(const String& FileName) {
    const std::shared_ptr<EngineState> state = x_state;
    ace::WriteActionLists(*state, FileName, state->Modul);
}

void aceActionsEngine::WriteActionLists(const String& FileName, aceModul Modul) {
    const std::shared_ptr<EngineState> state = x_state;
    ace::WriteActionLists(*state, FileName, Modul);
}

}  // namespace ace
