/// Documents of files that are opened again and again, such as at each action on a device.
#pragma once

#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "workbench/files/file_calls.h"
#include "workbench/files/settings_document.h"

namespace ace::workbench {

/// What changes with the content of a file, without reading it.
struct FileStamp {
    dev_t device = 0;
    ino_t number = 0;
    off_t size = 0;
    std::timespec modified{};
    std::timespec changed{};  ///< of content, name or rights; no program can set it
};
bool operator==(const FileStamp& a, const FileStamp& b);

/// Whoever changes the file after `now` gives it another stamp. A stamp that is younger than a tick
/// of the clock that made it may come again: some hundredths of a second, or two seconds where
/// times are kept that coarsely.
bool IsSettled(const FileStamp& stamp, const std::timespec& now);

/// The stamp of the plain file at `path`; nothing when it can't be opened. It is
/// opened, because a network file system asks its server then and not at each question for the
/// times.
std::optional<FileStamp> StampOf(const std::string& path, FileCalls& calls);

/// Keeps the documents of the last few files while their stamps stand, so that opening a file costs
/// the same for any size. Nobody changes a document that is kept.
class DocumentCache {
  public:
    static constexpr std::size_t MostDocuments = 4;
    using Load = std::function<std::optional<SettingsDocument>(const std::string& path)>;

    /// `calls` must outlive the object. `load` reads a file; nothing when there is none.
    DocumentCache(Load load, FileCalls& calls) : x_load(std::move(load)), x_calls(calls) {}

    /// The document as it stands in the file; none when there is no such file. What `load` raises
    /// comes out, and nothing is kept then.
    std::shared_ptr<const SettingsDocument> Get(const std::string& path);

  private:
    struct Kept {
        std::string path;
        FileStamp stamp;
        std::shared_ptr<const SettingsDocument> document;
    };

    Load x_load;
    FileCalls& x_calls;
    std::vector<Kept> x_kept;  ///< the one used last stands at the end
};

/// A document for one reader, shared until the reader changes it.
class SharedDocument {
  public:
    explicit SharedDocument(std::shared_ptr<const SettingsDocument> document)
        : x_document(std::move(document)) {}

    const SettingsDocument& operator*() const { return x_own ? *x_own : *x_document; }
    const SettingsDocument* operator->() const { return &**this; }
    /// The reader's own copy.
    SettingsDocument& Own();

  private:
    std::shared_ptr<const SettingsDocument> x_document;
    std::optional<SettingsDocument> x_own;
};

}  // namespace ace::workbench
