/// A value on a piece of memory of its own.
#pragma once

#include <cstddef>
#include <iterator>
#include <memory>
#include <type_traits>

namespace ace {

/// Holds one value, which is moved by moving a pointer. Copies are deep. One that was moved from
/// holds nothing: it may be destroyed, or have another moved into it, and nothing else.
template <class T>
class Boxed {
  public:
    Boxed() : x_value(std::make_unique<T>()) {}
    Boxed(const Boxed& other) : x_value(std::make_unique<T>(*other)) {}
    Boxed(Boxed&&) noexcept = default;
    ~Boxed() = default;
    Boxed& operator=(const Boxed& other) {
        **this = *other;
        return *this;
    }
    Boxed& operator=(Boxed&&) noexcept = default;

    T& operator*() { return *x_value; }
    const T& operator*() const { return *x_value; }

    friend bool operator==(const Boxed& a, const Boxed& b) { return *a == *b; }

  private:
    std::unique_ptr<T> x_value;
};

/// Walks over boxes and shows what is in them. `Iterator` is one over the boxes.
template <class Iterator>
class UnboxingIterator {
  public:
    using iterator_category = std::forward_iterator_tag;
    using reference = decltype(**std::declval<Iterator>());
    using value_type = std::remove_cvref_t<reference>;
    using pointer = std::remove_reference_t<reference>*;
    using difference_type = std::ptrdiff_t;

    UnboxingIterator() = default;
    explicit UnboxingIterator(Iterator at) : x_at(at) {}

    reference operator*() const { return **x_at; }
    pointer operator->() const { return &**x_at; }
    UnboxingIterator& operator++() {
        ++x_at;
        return *this;
    }
    UnboxingIterator operator++(int) {
        UnboxingIterator before = *this;
        ++*this;
        return before;
    }
    bool operator==(const UnboxingIterator&) const = default;

  private:
    Iterator x_at{};
};

/// Elements that are large and move often stand on memory of their own, so that to move one is to
/// move a pointer. To be specialised beside such a type.
template <class T>
inline constexpr bool IsLargeElement = false;

/// How an array keeps an element: boxed or as it is.
template <class T>
using ItemOf = std::conditional_t<IsLargeElement<T>, Boxed<T>, T>;

/// The element in an item.
template <class T, class Item>
auto& Unboxed(Item& item) {
    if constexpr (IsLargeElement<T>) {
        return *item;
    } else {
        return item;
    }
}
/// An iterator over elements from one over items.
template <class T, class Iterator>
auto Unboxing(Iterator at) {
    if constexpr (IsLargeElement<T>) {
        return UnboxingIterator<Iterator>(at);
    } else {
        return at;
    }
}

}  // namespace ace
