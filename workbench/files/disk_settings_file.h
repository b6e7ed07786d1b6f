/// Settings files on disk, and what the workbench knows of each beyond its bytes.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>

#include <ace/core/action_enums.h>
#include <ace/host/settings_file.h>

#include "workbench/files/document_cache.h"

namespace ace::workbench {

/// The file's document; nothing when there is no such file. One that can't be read is error
/// `FileErrors::CannotRead`, which names the file and the reason.
std::optional<SettingsDocument> LoadDocument(const std::string& path,
                                             FileCalls& calls = SystemFileCalls());

/// What is known of the lists of one module of a file.
struct ModuleMarks {
    bool loadFailed = false;  ///< what is in memory is not what the file should hold
    bool isUnsaved = false;   ///< edited since the last load or save
};

/// What is known of one file while the workbench runs.
struct FileState {
    std::string path;                         ///< UTF-8
    std::map<aceModul, ModuleMarks> modules;  ///< whose lists stand in the file
    bool isLoading = false;                   ///< within `SettingsFiles::Load`
    /// Within `SettingsFiles::Save`, whose lists are saved: a file that is missing is made.
    std::optional<aceModul> saving;
    /// The lines of the sections that loads have asked for, as the last of them found them or a
    /// save has written them since, whichever module they belong to.
    std::map<String, std::vector<String>> sections;
    std::map<String, std::vector<String>> asked;  ///< the same, of the load in progress
};

/// One opened file. Changes stay in memory until `Release`, which saves them in one step if any
/// byte differs; without `Release` they are dropped.
class DiskSettingsFile : public ISettingsFile {
  public:
    /// Without a document there is no such file yet. `calls` must outlive the object.
    DiskSettingsFile(std::shared_ptr<FileState> state,
                     std::shared_ptr<const SettingsDocument> document,
                     FileCalls& calls = SystemFileCalls());

    String GetString(const String& section, const String& key, const String& byDefault) override;
    void SetString(const String& section, const String& key, const String& value) override;
    /// A value that is no number is error 13, one beyond the range error 6; the description names
    /// file, section, key and value. Likewise for the other two kinds.
    double GetDouble(const String& section, const String& key, double byDefault) override;
    /// Written with up to 15 digits and a point.
    void SetDouble(const String& section, const String& key, double value) override;
    std::int32_t GetLong(const String& section, const String& key, std::int32_t byDefault) override;
    void SetLong(const String& section, const String& key, std::int32_t value) override;
    /// True is any number but 0, or the word true; written as 1 or 0.
    Boolean GetBoolean(const String& section, const String& key, Boolean byDefault) override;
    void SetBoolean(const String& section, const String& key, Boolean value) override;
    std::vector<String> GetSection(const String& section) override;
    /// Content of another kind than nothing, text or array of text is error 13.
    void SetSection(const String& section, const Value& content) override;
    /// Saves. A change is error `FileErrors::SaveRefused` after a load that failed (of the module
    /// that `SettingsFiles::Save` saves, outside of it of any module), and when another program has
    /// changed the file since this object read it. Within `SettingsFiles::Save` that is also the
    /// error of the first change of a section that another program has changed since the load.
    void Release() override;

  private:
    template <class Read>
    auto Get(const String& section, const String& key, Read&& read)
        -> std::optional<decltype(read(String()))>;
    template <class Act>
    void Change(const String& section, Act&& act);
    void NoteAsked(const String& section);
    void NoteSaved();
    void RequireAsLoaded(const String& section);

    std::optional<std::string> OnDisk() const;

    std::shared_ptr<FileState> x_state;
    bool x_isNew;
    SharedDocument x_document;
    std::set<String> x_changed;          ///< sections that were changed through this object
    std::optional<std::string> x_saved;  ///< by this object
    FileCalls& x_calls;
};

/// Opens settings files by name and keeps the marks of each module that has its lists in one: the
/// engine's own mark of unsaved changes is cleared before the file is written, so it can't tell
/// whether that went well. Of the matrix, whose templates share an engine, the last one counts.
class SettingsFiles {
  public:
    /// `calls` must outlive the object and the files that it opened.
    explicit SettingsFiles(FileCalls& calls = SystemFileCalls());

    /// The file as it stands on the disk; it is read only when it has changed since the last time.
    /// No object when there is no such file, except within `Save`, which makes it. One that can't
    /// be read is error `FileErrors::CannotRead`; only within `Load` that is a failed load.
    std::shared_ptr<DiskSettingsFile> Open(const String& name);

    /// Runs a load of the module's lists from the file. When it raises, they can't be saved until
    /// a load of them went well; only a load that was refused because a list runs, error 10, has
    /// changed nothing.
    void Load(const String& name, aceModul module, const std::function<void()>& load);
    /// Runs a save of the module's lists; after a failed load of them that is error
    /// `FileErrors::SaveRefused` before anything runs, and so is a change of a section that does
    /// not stand in the file as it was loaded: another program has changed it meanwhile. Sections
    /// that were not loaded may have changed. The mark of unsaved changes goes only when the save
    /// did not raise.
    void Save(const String& name, aceModul module, const std::function<void()>& save);

    void MarkUnsaved(const String& name, aceModul module);
    bool IsUnsaved(const String& name, aceModul module) const;
    bool LoadFailed(const String& name, aceModul module) const;
    /// Lists of any module of any file are unsaved.
    bool AnyUnsaved() const;

  private:
    std::shared_ptr<FileState> StateOf(const String& name);
    /// Those that nobody has set are good.
    ModuleMarks MarksOf(const String& name, aceModul module) const;

    FileCalls& x_calls;
    DocumentCache x_documents;
    std::map<std::string, std::shared_ptr<FileState>> x_states;  ///< by path without links and dots
};

}  // namespace ace::workbench
