/// The host's runner of API macros.
#pragma once

#include <ace/host/value.h>

namespace ace {

/// What a macro says about one of its inputs.
struct MacroParameterInfo {
    /// A table file; any other kind is a plain value.
    static constexpr std::int32_t TableKind = 3;

    std::int32_t kind = 0;
};

/// One macro that can be loaded, run and broken off. Only `WaitFinished` lets messages run.
class IApiMacro {
  public:
    virtual ~IApiMacro() = default;
    /// Number of inputs of the loaded program.
    virtual std::int16_t ParameterCount() = 0;
    /// The input of `index`, from 1.
    virtual MacroParameterInfo ParameterInfo(std::int32_t& index) = 0;
    /// Loads the program with one text per input, or nothing for none. The second argument is
    /// missing always, and `value` is not read. True when the file was loaded.
    virtual bool Load(const String& program, const Value& parameters, const Value& second,
                      Value& value) = 0;
    /// Breaks off a macro that runs; does nothing when none does.
    virtual void Abort() = 0;
    /// The macro succeeded.
    virtual bool GetResult() = 0;
    /// Starts the loaded macro; when the answer is false, `errorText` says why. `text` and `value`
    /// are not read.
    virtual bool Execute(String& text, String& errorText, Value& value) = 0;
    /// Returns when the macro has ended; messages run meanwhile, so that `Abort` can be called.
    virtual void WaitFinished() = 0;
};

/// A macro that can't be loaded.
class DefaultApiMacro : public IApiMacro {
  public:
    std::int16_t ParameterCount() override { return 0; }
    MacroParameterInfo ParameterInfo(std::int32_t&) override { return {}; }
    bool Load(const String&, const Value&, const Value&, Value&) override { return false; }
    void Abort() override {}
    bool GetResult() override { return false; }
    bool Execute(String&, String&, Value&) override { return false; }
    void WaitFinished() override {}
};

}  // namespace ace
