#include <charconv>
#include <string_view>
#include <utility>
#include <vector>

#include <ace/host/run_time_error.h>

namespace ace {

RunTimeError::RunTimeError(std::int32_t number, String description, String source, String helpFile)
    : x_number(number),
      x_description(Shared(std::move(description))),
      x_source(Shared(std::move(source))),
      x_helpFile(Shared(std::move(helpFile))) {
    constexpr std::string_view Words = "run-time error ";
    char* const digits = x_what.data() + Words.copy(x_what.data(), Words.size());
    std::to_chars(digits, x_what.data() + x_what.size() - 1, number);
}

RunTimeError RunTimeError::WithoutSource() const {
    RunTimeError bare(*this);
    bare.x_source.reset();
    bare.x_helpFile.reset();
    return bare;
}

RunTimeError::Text RunTimeError::Shared(String&& text) {
    return text.empty() ? nullptr : std::make_shared<const String>(std::move(text));
}

const String& RunTimeError::TextOf(const Text& text) {
    static const String empty;
    return text ? *text : empty;
}

namespace {

/// Never destroyed: an engine that goes last of all may still meet a failure.
const std::vector<RunTimeError>& StandingErrors() {
    static const auto& errors = *new std::vector<RunTimeError>{
        RunTimeError(Errors::InvalidProcedureCall, L"invalid procedure call"),
        RunTimeError(Errors::Overflow, L"overflow"),
        RunTimeError(Errors::OutOfMemory, L"out of memory"),
        RunTimeError(Errors::SubscriptOutOfRange, L"subscript out of range"),
        RunTimeError(Errors::ArrayInUse, L"array is in use"),
        RunTimeError(Errors::TypeMismatch, L"type mismatch"),
        RunTimeError(Errors::Internal, L"internal error"),
        RunTimeError(Errors::NoSuchFile, L"file not found"),
        RunTimeError(Errors::KeyInUse, L"the key is in use"),
        RunTimeError(Errors::ObjectNotSet, L"object variable not set"),
    };
    return errors;
}

/// Here and not at the first failure, which may be one for want of memory.
[[maybe_unused]] const std::size_t madeAtStart = StandingErrors().size();

}  // namespace

RunTimeError StandingError(std::int32_t number) {
    for (const RunTimeError& error : StandingErrors()) {
        if (error.Number() == number) {
            return error;
        }
    }
    return RunTimeError(number);
}

void Raise(std::int32_t number) {
    throw RunTimeError(StandingError(number));
}

}  // namespace ace
