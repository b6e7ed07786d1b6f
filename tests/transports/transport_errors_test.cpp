#include "workbench/transports/transport_errors.h"

#include <gtest/gtest.h>
#include <set>

#include "workbench/files/file_errors.h"

namespace ace::workbench {
namespace {

TEST(TransportErrorsTest, NoTwoFailuresOfTheWorkbenchHaveTheSameNumber) {
    const std::multiset<std::int32_t> numbers = {
        TransportErrors::CannotOpen,  TransportErrors::CannotSend,
        TransportErrors::CannotStart, TransportErrors::BadConfiguration,
        FileErrors::CannotRead,       FileErrors::CannotSave,
        FileErrors::SaveRefused,
    };
    for (const std::int32_t number : numbers) {
        EXPECT_EQ(numbers.count(number), 1U) << number;
    }
    EXPECT_EQ(numbers.count(5), 0U);  // the engine takes it for the error of an activation
}

}  // namespace
}  // namespace ace::workbench
