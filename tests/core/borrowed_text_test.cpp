#include <list>

#include <ace/core/borrowed_text.h>

#include "support/fixture.h"

namespace ace::test {
namespace {

class BorrowedTextTest : public HostTest {
  protected:
    /// Memory of a text far beyond what a string holds in itself.
    const wchar_t* Lend() {
        BorrowedText text(context);
        text->assign(100, L'x');
        return text->data();
    }
};

TEST_F(BorrowedTextTest, TextBeginsEmptyInTheMemoryOfTheOneBefore) {
    const wchar_t* const memory = Lend();
    BorrowedText text(context);
    EXPECT_EQ(*text, L"");
    text->assign(100, L'y');
    EXPECT_EQ(text->data(), memory);
}

TEST_F(BorrowedTextTest, TextThatIsBorrowedMeanwhileLeavesTheOuterOneAsItIs) {
    BorrowedText outer(context);
    outer->assign(100, L'o');
    {
        BorrowedText inner(context);
        inner->assign(100, L'i');
        EXPECT_NE(inner->data(), outer->data());
    }
    EXPECT_EQ(*outer, String(100, L'o'));
}

TEST_F(BorrowedTextTest, MemoryComesBackAlsoAfterAnError) {
    const wchar_t* memory = nullptr;
    EXPECT_EQ(ErrorOf([&] {
                  BorrowedText text(context);
                  text->assign(100, L'x');
                  memory = text->data();
                  Raise(Errors::TypeMismatch);
              }),
              13);
    BorrowedText again(context);
    again->assign(100, L'y');
    EXPECT_EQ(again->data(), memory);
}

TEST_F(BorrowedTextTest, AnyNumberCanBeBorrowedAtOnce) {
    std::list<BorrowedText> texts;
    for (std::size_t i = 0; i < 20; ++i) {
        texts.emplace_back(context)->assign(100, L'x');
    }
    texts.clear();
    EXPECT_EQ(context.SpareTexts.count, context.SpareTexts.texts.size());
    BorrowedText text(context);
    EXPECT_EQ(*text, L"");
}

}  // namespace
}  // namespace ace::test
