/// How an operation traces itself and treats run-time errors: the one place of that pattern.
#pragma once

#include <exception>
#include <optional>
#include <type_traits>

#include <ace/core/thread_context.h>

namespace ace {

/// The texts of an operation's two trace lines; some operations name themselves differently in
/// each.
struct TraceLines {
    StringView startProcedure;
    StringView module;
    StringView endProcedure;
    StringView component = L"ZOLTA_ActionsEngine";
};
/// Lines of an operation of the module-wide code.
constexpr TraceLines ModuleLines(StringView procedure) {
    return {procedure, L"modActions (Code)", procedure};
}
/// The module that the public operations of the engine object name in their lines.
inline constexpr StringView EngineModule = L"aceActionsEngine (Code)";
/// Lines of such an operation.
constexpr TraceLines EngineLines(StringView procedure) {
    return {procedure, EngineModule, procedure};
}
/// Lines of the editor's form. Intentional: the print writes its own in the form's name too.
constexpr TraceLines EditorLines(StringView procedure) {
    return {procedure, L"frmEditor (Code)", procedure};
}

/// The message of a start line that has none.
inline String NoMessage() {
    return {};
}
/// The message of one that tells a frequency in hertz.
String FreqMessage(ThreadContext& context, double frequency);

/// An error that the statement it came from has reported already; it never leaves an operation.
class ReportedError final : public RunTimeError {
  public:
    explicit ReportedError(const RunTimeError& error) : RunTimeError(error.WithoutSource()) {}
};

/// Handles the exception in flight at the end of a failed statement: reports it and returns when
/// the answer asks for the statement again; otherwise raises `ReportedError`.
void OnFailedStatement(ThreadContext& context, std::int32_t line);
/// Handles the exception in flight at the end of an operation: reports it unless that is done, and
/// raises the same number and description with an empty source.
[[noreturn]] void RaiseFromOperation(ThreadContext& context, std::int32_t line);
/// The exception in flight as a run-time error. A foreign one is error 51 with the bytes of its
/// text as characters; a failed allocation, or one larger than can be addressed, is error 7.
RunTimeError CurrentRunTimeError();

/// Runs the statements of an operation. A statement that fails is reported; the answer 5 runs that
/// statement again, any other ends the operation.
class Statements {
  public:
    explicit Statements(ThreadContext& context) : x_context(context) {}

    template <class Statement>
    decltype(auto) operator()(Statement&& statement, std::int32_t line = __builtin_LINE()) const {
        for (;;) {
            try {
                return statement();
            } catch (...) {
                OnFailedStatement(x_context, line);
            }
        }
    }

  private:
    ThreadContext& x_context;
};

/// An operation with an error handler and no trace lines. `body` receives the `Statements`.
template <class Body>
[[gnu::always_inline]] inline decltype(auto) Guarded(ThreadContext& context, Body&& body,
                                                     std::int32_t line = __builtin_LINE()) {
    try {
        return body(Statements{context});
    } catch (...) {
        RaiseFromOperation(context, line);
    }
}

/// Writes the line at the beginning or the end of an operation, without asking whether tracing is
/// on. Errors of the trace log come out; no messages run.
void WriteStartLine(ThreadContext& context, const TraceLines& lines, StringView message);
void WriteEndLine(ThreadContext& context, const TraceLines& lines);

/// The lines of a traced operation, each as a statement; kept apart from the operations, most of
/// which run untraced.
template <class Message>
[[gnu::cold, gnu::noinline]] void TraceStart(ThreadContext& context, const TraceLines& lines,
                                             Message& message) {
    Statements{context}([&] { WriteStartLine(context, lines, message()); });
}
[[gnu::cold]] void TraceEnd(ThreadContext& context, const TraceLines& lines);

/// An operation with an error handler and a trace line at either end. Whether tracing is on is
/// asked for each line; `message` is built only when it is. The end line is missing after an error.
template <class Message, class Body>
[[gnu::always_inline]] inline auto Logged(ThreadContext& context, const TraceLines& lines,
                                          Message&& message, Body&& body,
                                          std::int32_t line = __builtin_LINE()) {
    return Guarded(
        context,
        [&](const Statements& stmt) {
            ITraceLog& log = stmt([&]() -> ITraceLog& { return context.TraceLog(); });
            if (stmt([&] { return log.IsEnabled(); })) [[unlikely]] {
                TraceStart(context, lines, message);
            }
            const auto end = [&] {
                if (stmt([&] { return log.IsEnabled(); })) [[unlikely]] {
                    TraceEnd(context, lines);
                }
            };
            if constexpr (std::is_void_v<std::invoke_result_t<Body&, const Statements&>>) {
                body(stmt);
                end();
            } else {
                auto result = body(stmt);
                end();
                return result;
            }
        },
        line);
}

/// Runs statements of a routine that goes on after a failure, and keeps the last failure.
class ResumeNext {
  public:
    /// True when the statement went through.
    template <class Statement>
    bool operator()(Statement&& statement) {
        try {
            statement();
            return true;
        } catch (...) {
            Keep();
            return false;
        }
    }
    /// Number of the last failure; 0 before the first.
    std::int32_t Number() const { return x_last ? x_last->Number() : 0; }
    /// Its text; only behind a failure.
    const String& Description() const { return x_last->Description(); }

  private:
    void Keep();

    std::optional<RunTimeError> x_last;  ///< whose copy costs no memory
};

}  // namespace ace
