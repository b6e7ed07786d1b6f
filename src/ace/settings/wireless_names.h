/// Sections and keys of wireless tests. A section of action lines has another one beside it, for
/// the keys that belong to it.
#pragma once

#include <ace/host/basic_types.h>

namespace ace::WirelessNames {

/// The action lines of test `test`, from 1.
String TestSection(std::int32_t test);
/// The action lines of step `step`, from 1, of the test with that key.
String StepSection(const String& testKey, std::int32_t step);
/// What a matrix says of itself: how many rows it has, and what influences it.
String MatrixSection(std::int32_t templateNumber);
/// The section beside a section of action lines.
String KeysOf(const String& section);

/// Of a test: its key, without which there is no such test, and the number of its steps.
inline constexpr StringView TestKey = L"VKS_UKey";
inline constexpr StringView StepCount = L"SUBSTEPS";
/// Of a step: its key, without which there is no such step, and its name.
inline constexpr StringView StepKey = L"VKS_Key";
inline constexpr StringView StepName = L"VKS_Name";

}  // namespace ace::WirelessNames
