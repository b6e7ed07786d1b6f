/// What is tested, as data; `set_up` reads it.
#pragma once

#include <optional>
#include <vector>

#include "workbench/session/module_words.h"
#include "workbench/session/sweep.h"

namespace ace::workbench {

/// More subranges, channels, steps or tests than this are a slip of the pen.
inline constexpr std::int32_t MostSubranges = 10'000;

/// What the user may say instead of the file.
struct SetUpOptions {
    std::optional<aceModul> moduleKind{};
    std::optional<std::int32_t> subRanges{};
    /// The first for subrange 1 and so on; the last one serves all that follow.
    std::vector<Sweep> sweeps{};
    /// Template number of a matrix, instead of `subRanges`.
    std::optional<std::int32_t> matrixTemplate{};
};

/// What a monitoring channel goes by when a device of the bench watches it.
struct ChannelWatch {
    String device;                       ///< a monitoring device
    std::int32_t channel = 1;            ///< of that device
    std::optional<double> triggerAbove;  ///< a reading above it triggers
    std::optional<double> noGoAbove;     ///< a reading above it is no-go, any other is go
};

/// When a monitoring channel changes: at numbers of the frequencies of the test, from 1, and by the
/// readings of a device.
struct ChannelEvents {
    String name;
    std::vector<std::int32_t> trigger;
    std::vector<std::int32_t> noGo;
    std::vector<std::int32_t> go;
    std::optional<ChannelWatch> watch{};
};

/// A step of a wireless test.
struct WirelessStep {
    String key;
    String name;
};

/// A wireless test with its steps.
struct WirelessTest {
    String key;
    std::vector<WirelessStep> steps;
};

/// A frequency of a device under test; 0 Hz is its test mode.
struct MatrixFrequency {
    double hertz = 0.0;
    String name;
};

/// The dimensions of the matrix of a device under test. The id of a bandwidth or power is its
/// index.
struct Matrix {
    std::vector<MatrixFrequency> frequencies;
    std::vector<String> bandwidths;
    std::vector<String> powers;
    /// Whether the actions depend on a dimension; where nothing is said, the lists' own flag
    /// stands.
    std::optional<bool> byFrequency;
    std::optional<bool> byBandwidth;
    std::optional<bool> byPower;
};

/// A text that stands in the texts of actions, and what it stands for.
struct Placeholder {
    String name;
    String value;
};

/// One test that a session can run.
struct TestSetUp {
    aceModul moduleKind = aceTemplate;
    /// Number of subranges, channels, steps or tests; of the matrix its template number.
    std::int32_t subRanges = 0;
    String title;
    /// One for each numbered entry where entries have sweeps of their own; nothing for an entry
    /// without. Otherwise the sweeps of the test, one after the other.
    std::vector<std::optional<Sweep>> sweeps;
    std::vector<ChannelEvents> channels;
    std::vector<Placeholder> placeholders;  ///< of wireless tests and the matrix, in their order
    std::vector<WirelessTest> tests;
    Matrix matrix;
    /// Kind of the host's test, as generators and monitoring devices ask for it; none for no test.
    std::optional<std::int32_t> testKind;
    std::vector<String> notes;  ///< what the user should know before the test, one line each
};

}  // namespace ace::workbench
