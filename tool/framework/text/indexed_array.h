#pragma once
// What the framework's array classes share: positions are signed, and each access checks them.

#include <cstddef>
#include <vector>

#include "tool/framework/text/exceptions.h"

namespace framework {

template <class Element>
class IndexedArray {
 public:
  using INT_PTR = std::ptrdiff_t;

  int GetSize() const { return static_cast<int>(elements_.size()); }
  int GetCount() const { return GetSize(); }
  int GetUpperBound() const { return GetSize() - 1; }  ///< -1 when empty
  bool IsEmpty() const { return elements_.empty(); }
  /// Cuts the array, or fills it with default elements, to `size`.
  void SetSize(INT_PTR size) {
    if (size < 0) AfxThrowInvalidArgException();
    elements_.resize(static_cast<std::size_t>(size));
  }
  void RemoveAll() { elements_.clear(); }

  const Element &GetAt(INT_PTR index) const { return elements_[checked(index)]; }
  Element &ElementAt(INT_PTR index) { return elements_[checked(index)]; }
  const Element &ElementAt(INT_PTR index) const { return elements_[checked(index)]; }
  Element &operator[](INT_PTR index) { return ElementAt(index); }
  const Element &operator[](INT_PTR index) const { return GetAt(index); }
  void SetAt(INT_PTR index, Element element) { ElementAt(index) = std::move(element); }

  /// The new element's position.
  int Add(Element element) {
    elements_.push_back(std::move(element));
    return GetUpperBound();
  }
  /// Like SetAt, but a position beyond the end first fills the array up to it.
  void SetAtGrow(INT_PTR index, Element element) {
    if (index < 0) AfxThrowInvalidArgException();
    if (index >= GetSize()) elements_.resize(static_cast<std::size_t>(index) + 1);
    elements_[static_cast<std::size_t>(index)] = std::move(element);
  }
  /// Inserts `count` copies before `index`; a position beyond the end first fills the array up to it.
  void InsertAt(INT_PTR index, Element element, INT_PTR count = 1) {
    if (index < 0 || count <= 0) AfxThrowInvalidArgException();
    if (index > GetSize()) elements_.resize(static_cast<std::size_t>(index));
    elements_.insert(elements_.begin() + index, static_cast<std::size_t>(count), element);
  }
  void RemoveAt(INT_PTR index, INT_PTR count = 1) {
    if (index < 0 || count < 0 || index > GetSize() || count > GetSize() - index)
      AfxThrowInvalidArgException();
    elements_.erase(elements_.begin() + index, elements_.begin() + index + count);
  }
  void Append(const IndexedArray &other) {
    const std::vector<Element> copy = other.elements_;  // `other` may be this array
    elements_.insert(elements_.end(), copy.begin(), copy.end());
  }
  void Copy(const IndexedArray &other) { elements_ = other.elements_; }

  const Element *GetData() const { return elements_.data(); }
  auto begin() const { return elements_.begin(); }
  auto end() const { return elements_.end(); }

 private:
  std::size_t checked(INT_PTR index) const {
    if (index < 0 || index >= GetSize()) AfxThrowInvalidArgException();
    return static_cast<std::size_t>(index);
  }

  std::vector<Element> elements_;
};

}  // namespace framework
