#include <utility>

#include <ace/host/run_time_error.h>

namespace ace {

RunTimeError::RunTimeError(std::int32_t number, String description, String source, String helpFile)
    : x_number(number),
      x_description(std::move(description)),
      x_source(std::move(source)),
      x_helpFile(std::move(helpFile)),
      x_what("run-time error " + std::to_string(number)) {}

namespace {

struct StandingDescription {
    std::int32_t number;
    StringView text;
};

constexpr StandingDescription Descriptions[] = {
    {Errors::InvalidProcedureCall, L"invalid procedure call"},
    {Errors::Overflow, L"overflow"},
    {Errors::OutOfMemory, L"out of memory"},
    {Errors::SubscriptOutOfRange, L"subscript out of range"},
    {Errors::ArrayInUse, L"array is in use"},
    {Errors::TypeMismatch, L"type mismatch"},
    {Errors::Internal, L"internal error"},
    {Errors::NoSuchFile, L"file not found"},
    {Errors::ObjectNotSet, L"object variable not set"},
};

}  // namespace

void Raise(std::int32_t number) {
    for (const StandingDescription& row : Descriptions) {
        if (row.number == number) {
            throw RunTimeError(number, String(row.text));
        }
    }
    throw RunTimeError(number);
}

}  // namespace ace
