#include "workbench/files/trace_file.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <initializer_list>
#include <utility>

#include "workbench/files/file_errors.h"
#include "workbench/files/system_reason.h"
#include "workbench/files/text_encoding.h"
#include "workbench/words/wording.h"

namespace ace::workbench {

namespace {

struct Column {
    StringView text;
    std::size_t width;  ///< a longer text is not cut
};

constexpr std::size_t MarkerWidth = 5;
constexpr std::size_t ThreadWidth = 6;
constexpr std::size_t ProcedureWidth = 28;
constexpr std::size_t ModuleWidth = 24;
constexpr std::size_t ComponentWidth = 19;

/// A text of one line: a control character becomes "\n", "\r", "\t" or "\x" and its number.
String Visible(StringView text) {
    String visible;
    for (const wchar_t c : text) {
        if (!IsControl(c)) {
            visible += c;
        } else if (c == L'\n' || c == L'\r' || c == L'\t') {
            visible += c == L'\n' ? L"\\n" : c == L'\r' ? L"\\r" : L"\\t";
        } else {
            constexpr StringView Digits = L"0123456789ABCDEF";
            // NOLINTNEXTLINE(bugprone-signed-char-misuse): it is no char, and none is below 0.
            const auto code = static_cast<std::size_t>(c);
            visible.append(L"\\x").append(1, Digits[code / 16]).append(1, Digits[code % 16]);
        }
    }
    return visible;
}

/// The texts in columns, without blanks at the end.
std::string Columns(std::initializer_list<Column> columns) {
    String line;
    for (const Column& column : columns) {
        const String text = Visible(column.text);
        line += L"  " + text;
        if (text.size() < column.width) {
            line.append(column.width - text.size(), L' ');
        }
    }
    line.erase(line.find_last_not_of(L' ') + 1);
    return ToUtf8(line);
}

String Reason(const std::string& path, int systemError) {
    return FromUtf8(path) + L": " + SystemReason(systemError);
}

}  // namespace

std::string LocalTimeText() {
    using namespace std::chrono;
    const auto now = floor<milliseconds>(system_clock::now());
    const std::time_t seconds = system_clock::to_time_t(floor<std::chrono::seconds>(now));
    std::tm local{};
    ::localtime_r(&seconds, &local);
    char date[32];
    const std::size_t length = std::strftime(date, sizeof date, "%Y-%m-%d %H:%M:%S", &local);
    const auto part = static_cast<int>(now.time_since_epoch().count() % 1000);
    char fraction[8];
    std::snprintf(fraction, sizeof fraction, ".%03d", part);
    return std::string(date, length) + fraction;
}

TraceFile::TraceFile(std::string path, std::function<std::string()> now, FileCalls& calls)
    : x_calls(calls), x_now(std::move(now)), x_path(std::move(path)) {}

void TraceFile::Make() {
    x_file = x_calls.Open(x_path, O_WRONLY | O_CREAT | O_TRUNC | O_APPEND | O_CLOEXEC, 0666);
    if (x_file < 0) {
        const String reason = SystemReason(errno);
        throw RunTimeError(FileErrors::CannotSave,
                           FromUtf8(x_path) + L": can't be made: " + reason);
    }
    WriteOut(std::exchange(x_kept, {}));
}

TraceFile::~TraceFile() {
    if (x_file >= 0) {
        x_calls.Close(x_file);
    }
}

std::int32_t TraceFile::ReportError(const RunTimeError& error, std::int32_t threadId,
                                    std::int32_t errorLine) {
    const String thread = std::to_wstring(threadId);
    const String what = L"error " + std::to_wstring(error.Number());
    const String place = L"line " + std::to_wstring(errorLine);
    Append(Columns({{L"error", MarkerWidth},
                    {thread, ThreadWidth},
                    {what, ProcedureWidth},
                    {place, ModuleWidth},
                    {error.Source(), ComponentWidth},
                    {error.Description(), 0}}));
    return 0;
}

void TraceFile::WriteLine(StringView marker, StringView component, StringView module,
                          StringView procedure, StringView message, StringView threadId) {
    Append(Columns({{marker, MarkerWidth},
                    {threadId, ThreadWidth},
                    {procedure, ProcedureWidth},
                    {module, ModuleWidth},
                    {component, ComponentWidth},
                    {message, 0}}));
}

void TraceFile::Append(const std::string& line) {
    const std::string whole = x_now() + line + "\n";
    if (x_file < 0) {
        x_kept += whole;
    } else {
        WriteOut(whole);
    }
}

void TraceFile::WriteOut(std::string_view bytes) {
    while (!bytes.empty() && x_failure.empty()) {
        const ssize_t count = x_calls.Write(x_file, bytes.data(), bytes.size());
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (count == 0 || errno != EINTR) {
            x_failure = Reason(x_path, count == 0 ? ENOSPC : errno);
            x_isEnabled = false;
        }
    }
}

}  // namespace ace::workbench
