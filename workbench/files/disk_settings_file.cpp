#include "workbench/files/disk_settings_file.h"

#include <algorithm>
#include <filesystem>

#include <ace/core/text.h>

#include "workbench/files/file_errors.h"
#include "workbench/files/file_store.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

[[noreturn]] void RaiseInFile(const std::string& path, const RunTimeError& error,
                              const String& place = {}) {
    throw RunTimeError(error.Number(), FromUtf8(path) + L": " + place + error.Description(),
                       error.Source());
}

String PlaceOf(const String& section, const String& key) {
    return L"section [" + section + L"], key \"" + key + L"\": ";
}

/// The lines with CR LF between them, which is how a document takes them.
String JoinedLines(const DynArray<String>& lines) {
    String text;
    for (const String& line : lines) {
        text.append(line).append(L"\r\n");
    }
    return text;
}

/// Outside of a save nobody knows whose lists are written, so that every load has to be good.
void RequireGoodLoad(const FileState& state) {
    const bool isBad = std::ranges::any_of(state.modules, [&](const auto& entry) {
        return entry.second.loadFailed && state.saving.value_or(entry.first) == entry.first;
    });
    if (isBad) {
        throw RunTimeError(FileErrors::SaveRefused,
                           FromUtf8(state.path) +
                               L": not saved, because its last load failed and the lists in memory "
                               L"are not complete");
    }
}

/// The same for two names of the same file.
std::string PlainPathOf(const String& name) {
    std::error_code error;
    const std::string path = ToUtf8(name);
    const std::filesystem::path plain = std::filesystem::weakly_canonical(path, error);
    return error ? path : plain.string();
}

}  // namespace

std::optional<SettingsDocument> LoadDocument(const std::string& path, FileCalls& calls) {
    std::optional<std::string> bytes = ReadWholeFile(path, calls);
    if (!bytes) {
        return std::nullopt;
    }
    try {
        return SettingsDocument(std::move(*bytes));
    } catch (const RunTimeError& error) {
        RaiseInFile(path, error);
    }
}

DiskSettingsFile::DiskSettingsFile(std::shared_ptr<FileState> state,
                                   std::shared_ptr<const SettingsDocument> document,
                                   FileCalls& calls)
    : x_state(std::move(state)),
      x_isNew(document == nullptr),
      x_document(x_isNew ? std::make_shared<const SettingsDocument>() : std::move(document)),
      x_calls(calls) {}

/// What the file holds as far as this object knows.
std::optional<std::string> DiskSettingsFile::OnDisk() const {
    if (x_saved) {
        return x_saved;
    }
    return x_isNew ? std::nullopt : std::optional(x_document->SourceBytes());
}

/// What `read` makes of the value; nothing when there is no such key.
template <class Read>
auto DiskSettingsFile::Get(const String& section, const String& key, Read&& read)
    -> std::optional<decltype(read(String()))> {
    NoteAsked(section);
    const std::optional<String> text = x_document->GetKey(section, key);
    if (!text) {
        return std::nullopt;
    }
    try {
        return read(*text);
    } catch (const RunTimeError& error) {
        const StringView why =
            error.Number() == Errors::Overflow ? L" is out of range" : L" is not a valid value";
        RaiseInFile(x_state->path,
                    RunTimeError(error.Number(), L"\"" + *text + L"\"" + String(why)),
                    PlaceOf(section, key));
    }
}

void DiskSettingsFile::NoteAsked(const String& section) {
    if (x_state->isLoading) {
        x_state->asked.try_emplace(section, x_document->GetSection(section));
    }
}

/// What another program has made of a section since it was loaded would be lost.
void DiskSettingsFile::RequireAsLoaded(const String& section) {
    const auto loaded = x_state->sections.find(section);
    if (x_state->saving && loaded != x_state->sections.end() &&
        loaded->second != x_document->GetSection(section)) {
        throw RunTimeError(FileErrors::SaveRefused, FromUtf8(x_state->path) +
                                                        L": not saved, because another program has "
                                                        L"changed section [" +
                                                        section + L"] since it was loaded");
    }
}

void DiskSettingsFile::NoteSaved() {
    if (x_state->saving) {
        for (const String& section : x_changed) {
            x_state->sections[section] = x_document->GetSection(section);
        }
    }
}

/// A section is looked at before its first change.
template <class Act>
void DiskSettingsFile::Change(const String& section, Act&& act) {
    if (!x_changed.contains(section)) {
        RequireAsLoaded(section);
        x_changed.insert(section);
    }
    try {
        act();
    } catch (const RunTimeError& error) {
        RaiseInFile(x_state->path, error);
    }
}

String DiskSettingsFile::GetString(const String& section, const String& key,
                                   const String& byDefault) {
    NoteAsked(section);
    return x_document->GetKey(section, key).value_or(byDefault);
}

void DiskSettingsFile::SetString(const String& section, const String& key, const String& value) {
    Change(section, [&] { x_document.Own().SetKey(section, key, value); });
}

double DiskSettingsFile::GetDouble(const String& section, const String& key, double byDefault) {
    return Get(section, key, ReadStrictNumber).value_or(byDefault);
}

void DiskSettingsFile::SetDouble(const String& section, const String& key, double value) {
    SetString(section, key, FormatGeneral(value, L'.'));
}

std::int32_t DiskSettingsFile::GetLong(const String& section, const String& key,
                                       std::int32_t byDefault) {
    return Get(section, key, ReadStrictInteger).value_or(byDefault);
}

void DiskSettingsFile::SetLong(const String& section, const String& key, std::int32_t value) {
    SetString(section, key, FormatGeneral(value, L'.'));
}

Boolean DiskSettingsFile::GetBoolean(const String& section, const String& key, Boolean byDefault) {
    const auto read = [](const String& text) { return Boolean(ReadBooleanText(Trimmed(text))); };
    return Get(section, key, read).value_or(byDefault);
}

void DiskSettingsFile::SetBoolean(const String& section, const String& key, Boolean value) {
    SetString(section, key, value ? L"1" : L"0");
}

std::vector<String> DiskSettingsFile::GetSection(const String& section) {
    NoteAsked(section);
    return x_document->GetSection(section);
}

void DiskSettingsFile::SetSection(const String& section, const Value& content) {
    Change(section, [&] {
        if (std::holds_alternative<std::monostate>(content)) {
            x_document.Own().DeleteSection(section);
        } else if (const auto* text = std::get_if<String>(&content)) {
            x_document.Own().SetSection(section, *text);
        } else if (const auto* lines = std::get_if<DynArray<String>>(&content)) {
            x_document.Own().SetSection(section, JoinedLines(*lines));
        } else {
            Raise(Errors::TypeMismatch);
        }
    });
}

void DiskSettingsFile::Release() {
    std::optional<std::string> bytes;
    try {
        bytes = x_document->ChangedBytes();
    } catch (const RunTimeError& error) {
        RaiseInFile(x_state->path, error);
    }
    if (bytes) {
        RequireGoodLoad(*x_state);
        SaveUnchangedFile(x_state->path, OnDisk(), *bytes, x_calls);
        x_saved = std::move(bytes);
    }
    NoteSaved();
}

SettingsFiles::SettingsFiles(FileCalls& calls)
    : x_calls(calls),
      x_documents([&calls](const std::string& path) { return LoadDocument(path, calls); }, calls) {}

std::shared_ptr<DiskSettingsFile> SettingsFiles::Open(const String& name) {
    const std::shared_ptr<FileState> state = StateOf(name);
    std::shared_ptr<const SettingsDocument> document = x_documents.Get(state->path);
    if (!document && !state->saving) {
        return nullptr;
    }
    return std::make_shared<DiskSettingsFile>(state, std::move(document), x_calls);
}

void SettingsFiles::Load(const String& name, aceModul module, const std::function<void()>& load) {
    const std::shared_ptr<FileState> state = StateOf(name);
    ModuleMarks& marks = state->modules[module];
    const bool failedBefore = marks.loadFailed;
    marks.loadFailed = state->isLoading = true;
    state->asked.clear();
    try {
        load();
    } catch (const RunTimeError& error) {
        state->isLoading = false;
        marks.loadFailed = failedBefore || error.Number() != Errors::ArrayInUse;
        throw;
    } catch (...) {
        state->isLoading = false;
        throw;
    }
    state->isLoading = false;
    marks = {};
    for (auto& [section, lines] : state->asked) {
        state->sections.insert_or_assign(section, std::move(lines));
    }
}

void SettingsFiles::Save(const String& name, aceModul module, const std::function<void()>& save) {
    const std::shared_ptr<FileState> state = StateOf(name);
    state->saving = module;
    try {
        RequireGoodLoad(*state);
        save();
    } catch (...) {
        state->saving.reset();
        throw;
    }
    state->saving.reset();
    state->modules[module].isUnsaved = false;
}

void SettingsFiles::MarkUnsaved(const String& name, aceModul module) {
    StateOf(name)->modules[module].isUnsaved = true;
}

bool SettingsFiles::IsUnsaved(const String& name, aceModul module) const {
    return MarksOf(name, module).isUnsaved;
}

bool SettingsFiles::LoadFailed(const String& name, aceModul module) const {
    return MarksOf(name, module).loadFailed;
}

bool SettingsFiles::AnyUnsaved() const {
    return std::ranges::any_of(x_states, [](const auto& entry) {
        return std::ranges::any_of(entry.second->modules,
                                   [](const auto& marks) { return marks.second.isUnsaved; });
    });
}

std::shared_ptr<FileState> SettingsFiles::StateOf(const String& name) {
    std::shared_ptr<FileState>& state = x_states[PlainPathOf(name)];
    if (!state) {
        state = std::make_shared<FileState>();
        state->path = ToUtf8(name);
    }
    return state;
}

ModuleMarks SettingsFiles::MarksOf(const String& name, aceModul module) const {
    const auto entry = x_states.find(PlainPathOf(name));
    if (entry == x_states.end()) {
        return {};
    }
    const auto marks = entry->second->modules.find(module);
    return marks == entry->second->modules.end() ? ModuleMarks{} : marks->second;
}

}  // namespace ace::workbench
