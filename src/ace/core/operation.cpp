#include <stdexcept>

#include <ace/core/operation.h>
#include <ace/core/text.h>

namespace ace {

namespace {

/// The answer of the trace log. A report that fails itself is no reason to hide the error that it
/// is about: that one is then raised as after any other answer.
std::int32_t Report(ThreadContext& context, const RunTimeError& error, std::int32_t line) {
    constexpr std::int32_t NoAnswer = 0;
    try {
        const std::int32_t threadId = context.Platform().ThreadId();
        return context.TraceLog().ReportError(error, threadId, line);
    } catch (...) {
        return NoAnswer;
    }
}

/// The bytes of a foreign exception's text, one character each.
String WideText(const char* text) {
    String wide;
    for (; *text != '\0'; ++text) {
        wide += static_cast<wchar_t>(static_cast<unsigned char>(*text));
    }
    return wide;
}

/// Without memory for its text, that is the failure to tell of.
RunTimeError ForeignError(const std::exception& error) {
    try {
        return RunTimeError(Errors::Internal, WideText(error.what()));
    } catch (const std::bad_alloc&) {
        return StandingError(Errors::OutOfMemory);
    }
}

String ThreadIdText(ThreadContext& context) {
    return IntegerText(context.Platform().ThreadId());
}

}  // namespace

String FreqMessage(ThreadContext& context, double frequency) {
    return L"Freq = " + FormatGeneral(frequency, context.Platform().DecimalSeparator());
}

RunTimeError CurrentRunTimeError() {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return StandingError(Errors::OutOfMemory);
    } catch (const std::length_error&) {
        return StandingError(Errors::OutOfMemory);
    } catch (const std::exception& error) {
        return ForeignError(error);
    } catch (...) {
        return StandingError(Errors::Internal);
    }
}

void OnFailedStatement(ThreadContext& context, std::int32_t line) {
    try {
        throw;
    } catch (const ReportedError&) {
        throw;
    } catch (...) {
        const RunTimeError error = CurrentRunTimeError();
        if (Report(context, error, line) == ITraceLog::RetryStatement) {
            return;
        }
        throw ReportedError(error);
    }
}

void RaiseFromOperation(ThreadContext& context, std::int32_t line) {
    try {
        throw;
    } catch (const ReportedError& error) {
        throw error.WithoutSource();
    } catch (...) {
        const RunTimeError error = CurrentRunTimeError();
        Report(context, error, line);
        throw error.WithoutSource();
    }
}

void WriteStartLine(ThreadContext& context, const TraceLines& lines, StringView message) {
    context.TraceLog().WriteLine(L"start", lines.component, lines.module, lines.startProcedure,
                                 message, ThreadIdText(context));
}

void WriteEndLine(ThreadContext& context, const TraceLines& lines) {
    context.TraceLog().WriteLine(L"end", {}, {}, lines.endProcedure, {}, ThreadIdText(context));
}

void TraceEnd(ThreadContext& context, const TraceLines& lines) {
    Statements{context}([&] { WriteEndLine(context, lines); });
}

void ResumeNext::Keep() {
    x_last = CurrentRunTimeError();
}

}  // namespace ace
