/// The program of every test folder: as gtest's own, and the first failure stands once more at the
/// end, where it is looked for.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iostream>
#include <string>

namespace {

class FirstFailure : public testing::EmptyTestEventListener {
  public:
    const std::string& Text() const { return x_text; }

  private:
    void OnTestStart(const testing::TestInfo& test) override {
        x_test = std::string(test.test_suite_name()) + "." + test.name();
    }
    void OnTestEnd(const testing::TestInfo& /*test*/) override { x_test = "outside of a test"; }
    /// gtest holds its lock meanwhile: nothing of it may be asked here.
    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (result.failed() && x_text.empty()) {
            x_text = "first failure: " + x_test + "\n" +
                     (result.file_name() == nullptr ? "" : result.file_name()) + ":" +
                     std::to_string(result.line_number()) + "\n" + result.message();
        }
    }

    std::string x_test = "outside of a test";
    std::string x_text;
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    auto* failure = new FirstFailure;  // the list of listeners owns it
    testing::UnitTest::GetInstance()->listeners().Append(failure);
    const int result = RUN_ALL_TESTS();
    if (!failure->Text().empty()) {
        std::cout << "----------\n" << failure->Text() << "\n----------" << std::endl;
    }
    return result;
}
