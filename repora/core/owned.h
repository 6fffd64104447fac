#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "repora/core/text.h"

// The value holders from which every statement and clause class is made.
namespace repora {

// The decimal number at the start of a text, as atoi reads it but with a defined result for every
// text: null and texts without a number give 0, numbers out of range give the nearest int.
int ToInt(char const* text);

// What a value class is made of when it is made from a pointer to another: a copy, or a default
// value for null.
template <class T>
T CopyOf(T const* value) {
  return value ? *value : T();
}

// An owned child that may be null. Set takes ownership and does not delete the child it replaces:
// that one goes back to whoever handed it in. Copies are deep and need a copyable T.
template <class T>
class Owned {
 public:
  Owned() = default;
  ~Owned() { delete child_; }
  Owned(Owned const& other) : child_(other.child_ ? new T(*other.child_) : nullptr) {}
  Owned(Owned&& other) noexcept : child_(other.Release()) {}
  Owned& operator=(Owned other) noexcept {
    std::swap(child_, other.child_);
    return *this;
  }

  void Set(T* child) { child_ = child; }
  T* Get() const { return child_; }
  // Hands the child over to the caller.
  T* Release() { return std::exchange(child_, nullptr); }

  explicit operator bool() const { return child_ != nullptr; }
  T* operator->() const { return child_; }
  T& operator*() const { return *child_; }

 private:
  T* child_ = nullptr;
};

// An owned child that copies of the holder share, for children that are not copied: conditions and
// expressions, which are only read once they are built. Set behaves as in Owned.
template <class T>
class Shared {
 public:
  Shared() = default;
  ~Shared() {
    if (!holders_ || --*holders_ > 0) return;
    delete child_;
    delete holders_;
  }
  Shared(Shared const& other) : child_(other.child_), holders_(other.holders_) {
    if (holders_) ++*holders_;
  }
  Shared& operator=(Shared other) noexcept {
    std::swap(child_, other.child_);
    std::swap(holders_, other.holders_);
    return *this;
  }

  void Set(T* child) {
    if (holders_ && *holders_ > 1) --*std::exchange(holders_, nullptr);
    if (!holders_) holders_ = new int(1);
    child_ = child;
  }
  T* Get() const { return child_; }

  explicit operator bool() const { return child_ != nullptr; }
  T* operator->() const { return child_; }

 private:
  T* child_ = nullptr;
  int* holders_ = nullptr;  // null: nothing was ever set
};

// What a list does with the results of its elements' Process.
enum class ListRule {
  StopAtFailure,      // stops at the first result other than 0 and returns it
  SkipDuplicates,     // as above, but a result of 1 counts as 0
  RunAllKeepFailure,  // goes through all elements, returns the last result other than 0
};

// What a list does with a null element.
enum class NullElements { Ignored, Kept };

// Owned pointers in order, cheap to extend at both ends: the object model is filled from the last
// element to the first as often as the other way round. Copies are deep, and only for lists whose
// elements are copied whole: nothing derives from their class.
template <class T, NullElements nulls = NullElements::Ignored>
class OwnedList {
 public:
  OwnedList() = default;
  OwnedList(OwnedList const& other) {
    static_assert(!std::is_polymorphic_v<T> || std::is_final_v<T>, "the copy would be a slice");
    tail_.reserve(static_cast<std::size_t>(other.GetCount()));
    for (int i = 0; i < other.GetCount(); ++i)
      tail_.push_back(other.At(i) ? new T(*other.At(i)) : nullptr);
  }
  OwnedList(OwnedList&& other) noexcept { Swap(other); }
  OwnedList& operator=(OwnedList other) noexcept {
    Swap(other);
    return *this;
  }
  ~OwnedList() { RemoveAll(); }

  void AddHead(T* element) {
    if (element || nulls == NullElements::Kept) head_.push_back(element);
  }
  void AddTail(T* element) {
    if (element || nulls == NullElements::Kept) tail_.push_back(element);
  }
  int GetCount() const { return static_cast<int>(head_.size() + tail_.size()); }
  bool IsEmpty() const { return head_.empty() && tail_.empty(); }

  // The element at a position from 0 to GetCount() - 1, borrowed; otherwise std::invalid_argument.
  T* At(int position) const {
    if (position < 0 || position >= GetCount())
      throw std::invalid_argument("position outside the list");
    auto const index = static_cast<std::size_t>(position);
    return index < head_.size() ? head_[head_.size() - 1 - index] : tail_[index - head_.size()];
  }

  // Takes an element out of the list and hands it to the caller; positions as in At.
  T* RemoveAt(int position) {
    T* const element = At(position);
    if (position < static_cast<int>(head_.size()))
      head_.erase(head_.end() - 1 - position);
    else
      tail_.erase(tail_.begin() + position - static_cast<std::ptrdiff_t>(head_.size()));
    return element;
  }

  // Takes the last element out of the list and hands it to the caller; null when there is none.
  T* RemoveTail() {
    if (tail_.empty()) {
      tail_.assign(head_.rbegin(), head_.rend());
      head_.clear();
    }
    if (tail_.empty()) return nullptr;
    T* const element = tail_.back();
    tail_.pop_back();
    return element;
  }

  // Deletes every element.
  void RemoveAll() {
    for (T* element : head_) delete element;
    for (T* element : tail_) delete element;
    head_.clear();
    tail_.clear();
  }

  // Calls process(element) for the elements in order; Result is an int-like enumeration. This and
  // Join are for lists without null elements.
  template <class Process>
  auto ProcessAll(Process process, ListRule rule = ListRule::StopAtFailure) const
      -> decltype(process(std::declval<T const&>())) {
    static_assert(nulls == NullElements::Ignored);
    using Result = decltype(process(std::declval<T const&>()));
    auto kept = Result{};
    for (int i = 0; i < GetCount(); ++i) {
      auto const result = process(static_cast<T const&>(*At(i)));
      if (result == Result{}) continue;
      if (rule == ListRule::SkipDuplicates && static_cast<int>(result) == 1) continue;
      if (rule != ListRule::RunAllKeepFailure) return result;
      kept = result;
    }
    return kept;
  }

  // text(element) of the elements in order, separated, in parentheses when asked for.
  template <class Render>
  std::string Join(char const* separator, bool parenthesised, Render render) const {
    static_assert(nulls == NullElements::Ignored);
    std::string text(parenthesised ? "(" : "");
    for (int i = 0; i < GetCount(); ++i) {
      if (i > 0) text += separator;
      text += render(static_cast<T const&>(*At(i)));
    }
    if (parenthesised) text += ")";
    return text;
  }

 private:
  void Swap(OwnedList& other) noexcept {
    head_.swap(other.head_);
    tail_.swap(other.tail_);
  }

  std::vector<T*> head_;  // the front of the list, back to front
  std::vector<T*> tail_;
};

// What lists of clauses offer; what they do with their clauses is the derived class's own.
template <class Clause>
class ClauseList {
 public:
  void AddHead(Clause* clause) { clauses_.AddHead(clause); }
  void AddTail(Clause* clause) { clauses_.AddTail(clause); }
  int GetCount() const { return clauses_.GetCount(); }
  Clause* GetClause(int index) const { return clauses_.At(index); }

 protected:
  // The texts of the clauses.
  std::string Join(char const* separator, bool parenthesised) const {
    return clauses_.Join(separator, parenthesised,
                         [](Clause const& clause) { return clause.AsString(); });
  }

  OwnedList<Clause> clauses_;
};

}  // namespace repora
