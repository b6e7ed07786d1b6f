/// Texts for the host that cost no memory of their own.
#pragma once

#include <utility>

#include <ace/core/thread_context.h>

namespace ace {

/// An empty text with the memory that an earlier one has given back. What runs at every frequency
/// builds its texts in such. Whoever borrows from inside a call of the host gets other memory, so
/// that a text stands as long as its borrower. `context` must outlive the object.
class BorrowedText {
  public:
    explicit BorrowedText(ThreadContext& context) : x_spare(context.SpareTexts) {
        if (x_spare.count > 0) {
            x_text = std::move(x_spare.texts[--x_spare.count]);
            x_text->clear();
        } else {
            x_text = std::make_unique<String>();
        }
    }
    BorrowedText(const BorrowedText&) = delete;
    BorrowedText& operator=(const BorrowedText&) = delete;
    ~BorrowedText() {
        if (x_spare.count < x_spare.texts.size()) {
            x_spare.texts[x_spare.count++] = std::move(x_text);
        }
    }

    String& operator*() { return *x_text; }
    const String& operator*() const { return *x_text; }
    String* operator->() { return x_text.get(); }

  private:
    SpareTexts& x_spare;
    std::unique_ptr<String> x_text;
};

}  // namespace ace
