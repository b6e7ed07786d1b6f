/// How a test speaks to the library that stands in for a bus driver.
#pragma once

/// What the stand-in does and what it was asked to do. One per library, found under the name
/// "fakeGpib".
struct FakeGpib {
    int nextDevice;      ///< answer of the next `ibdev`
    int nextError;       ///< error code of the next call, -1 for success; used up by it
    bool hasTimedOut;    ///< the failure is told as a time-out
    char calls[4096];    ///< a line per call
    char written[4096];  ///< bytes of the last `ibwrt`
    long writtenCount;
};
