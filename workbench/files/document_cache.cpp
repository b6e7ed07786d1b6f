#include "workbench/files/document_cache.h"

#include <algorithm>
#include <fcntl.h>
#include <tuple>

namespace ace::workbench {

namespace {

constexpr std::int64_t Second = 1'000'000'000;
/// Two ticks of the slowest clock by which a kernel stamps files.
constexpr std::int64_t FineTick = 20'000'000;
/// File systems that keep whole seconds, or hundredths, show it in the digits behind them.
constexpr std::int64_t CoarseDigits = 10'000'000;
constexpr std::int64_t CoarseTick = 2 * Second;

std::int64_t Nanoseconds(const std::timespec& time) {
    return std::int64_t{time.tv_sec} * Second + time.tv_nsec;
}

}  // namespace

bool operator==(const FileStamp& a, const FileStamp& b) {
    const auto key = [](const FileStamp& stamp) {
        return std::tuple(stamp.device, stamp.number, stamp.size, Nanoseconds(stamp.modified),
                          Nanoseconds(stamp.changed));
    };
    return key(a) == key(b);
}

bool IsSettled(const FileStamp& stamp, const std::timespec& now) {
    const bool isCoarse = stamp.changed.tv_nsec % CoarseDigits == 0;
    return Nanoseconds(now) - Nanoseconds(stamp.changed) > (isCoarse ? CoarseTick : FineTick);
}

std::optional<FileStamp> StampOf(const std::string& path, FileCalls& calls) {
    const int file = calls.Open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC, 0);
    if (file < 0) {
        return std::nullopt;
    }
    struct stat status {};
    const bool isPlain = calls.Fstat(file, status) == 0 && S_ISREG(status.st_mode);
    calls.Close(file);
    return isPlain ? std::optional(FileStamp{status.st_dev, status.st_ino, status.st_size,
                                             status.st_mtim, status.st_ctim})
                   : std::nullopt;
}

std::shared_ptr<const SettingsDocument> DocumentCache::Get(const std::string& path) {
    const std::timespec now = x_calls.Now();
    const std::optional<FileStamp> stamp = StampOf(path, x_calls);
    const auto found = std::ranges::find(x_kept, path, &Kept::path);
    if (found != x_kept.end()) {
        if (stamp && *stamp == found->stamp) {
            std::rotate(found, found + 1, x_kept.end());
            return x_kept.back().document;
        }
        x_kept.erase(found);
    }
    std::optional<SettingsDocument> loaded = x_load(path);
    if (!loaded) {
        return nullptr;
    }
    auto document = std::make_shared<const SettingsDocument>(*std::move(loaded));
    // One that may yet change unseen is read anew the next time. One that changes while it is read
    // has another stamp by then.
    if (stamp && IsSettled(*stamp, now)) {
        if (x_kept.size() == MostDocuments) {
            x_kept.erase(x_kept.begin());
        }
        x_kept.push_back({path, *stamp, document});
    }
    return document;
}

SettingsDocument& SharedDocument::Own() {
    if (!x_own) {
        x_own = *x_document;
        x_document = nullptr;
    }
    return *x_own;
}

}  // namespace ace::workbench
