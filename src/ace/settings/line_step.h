/// What the reader of a line is at: what a failure there is about.
#pragma once

#include <ace/host/basic_types.h>

namespace ace {

/// What a step of the reader is about. It is noted before the step, so that a failure can be told
/// in words.
struct LineStep {
    enum Kind : std::uint8_t {
        Plain,  ///< the error speaks for itself
        FindEqualSign,
        FindColon,
        FindComma,
        FindField,   ///< `number`: which, from 0
        NeedNumber,  ///< `text`: what should be one
        NeedTruth,   ///< `text`: what should be one
        MakeList,    ///< `number`: its count
        FindEntry,   ///< `number`: which, from 1; `text`: the same as the key has it
        UseMoniDev,  ///< the old form without generator
    };
    Kind kind = Plain;
    std::int32_t number = 0;
    StringView text;
};

}  // namespace ace
