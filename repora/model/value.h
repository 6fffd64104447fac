#pragma once

#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "repora/model/shared_text.h"

// One object id, wrapped so that it becomes a reference when it is put into a value.
class QELShortId {
 public:
  QELShortId() = default;
  explicit QELShortId(std::uint32_t id) : id_(id) {}
  std::uint32_t Id() const { return id_; }
  friend bool operator==(QELShortId a, QELShortId b) { return a.id_ == b.id_; }

 private:
  std::uint32_t id_ = 0;
};

// A variant value of a property. Copies share texts and vectors until one of them is appended to.
// Twelve bytes, so that a property with its id takes sixteen.
class QELValue {
 public:
  enum Kind_e : std::uint8_t {
    eEmpty = 0,
    eInteger = 1,
    eBoolean = 6,
    eText = 9,
    eShortId = 11,
    eTextVector = 20,
    eShortIdVector = 21,
    eInt64Vector = 22,
  };

  QELValue() = default;
  explicit QELValue(char const* text);  // null counts as empty text
  explicit QELValue(std::string_view text);
  explicit QELValue(repora::SharedText text);
  explicit QELValue(std::vector<std::string> const& texts);
  explicit QELValue(QELShortId reference);
  static QELValue FromInteger(std::int32_t value);
  static QELValue FromBoolean(bool value);

  QELValue(QELValue const& other)
      : payload_{other.payload_[0], other.payload_[1]}, kind_(other.kind_) {
    if (IsCounted()) AddReference();
  }
  QELValue(QELValue&& other) noexcept { Swap(other); }
  QELValue& operator=(QELValue other) noexcept {
    Swap(other);
    return *this;
  }
  ~QELValue() {
    if (IsCounted()) Clean();
  }
  // A vector of references; empty when there are none.
  static QELValue FromShortIds(std::span<std::uint32_t const> ids);

  // Appending starts a vector when the value is empty; on a value of another kind it does nothing.
  QELValue& operator+=(QELShortId reference);
  QELValue& operator+=(char const* text);
  QELValue& operator+=(std::int64_t number);

  // Readers of a value of another kind give 0, false or empty.
  Kind_e Kind() const { return kind_; }
  std::int32_t Integer() const;
  bool Boolean() const;
  std::uint32_t ShortId() const { return kind_ == eShortId ? payload_[0] : 0; }
  std::string String() const { return std::string(View()); }
  // Of a text value, valid as long as a copy of the value lives.
  std::string_view View() const {
    return kind_ == eText ? repora::SharedText::ViewOf(Pointer()) : std::string_view();
  }
  repora::SharedText ShareText() const {
    return kind_ == eText ? repora::SharedText::Share(Pointer()) : repora::SharedText();
  }
  // The elements of a vector of references or of 64-bit numbers, valid until the value changes.
  std::span<std::uint32_t const> ShortIds() const;
  std::span<std::int64_t const> Int64s() const;
  // The value as text, elements of vectors separated by ", ". The argument asks for the full form,
  // the only one there is.
  std::string AsString(bool full) const;
  // Replace the contents of the vector; false for values of another kind.
  bool GetStringVector(std::vector<std::string>& texts) const;
  bool GetShortIdVector(std::vector<QELShortId>& references) const;
  bool GetInt64Vector(std::vector<std::int64_t>& numbers) const;

  // Whether a value holds anything; an empty text is something.
  static bool HasValue(QELValue const& value) { return value.kind_ != eEmpty; }
  friend bool operator==(QELValue const& a, QELValue const& b);

  // Releases what the value holds; it is empty afterwards.
  void Clean();

 private:
  struct Texts;    // the shared contents of a vector of texts
  struct Numbers;  // and of the other vectors

  // Whether the payload is a pointer to contents that copies share.
  bool IsCounted() const { return kind_ >= eText && kind_ != eShortId; }
  void AddReference() {
    if (auto* const count = static_cast<repora::ShareCount*>(Pointer())) count->Add();
  }
  void Swap(QELValue& other) noexcept {
    std::swap(payload_[0], other.payload_[0]);
    std::swap(payload_[1], other.payload_[1]);
    std::swap(kind_, other.kind_);
  }
  void* Pointer() const {
    void* pointer = nullptr;
    std::memcpy(&pointer, payload_, sizeof pointer);
    return pointer;
  }
  void SetPointer(void* pointer, Kind_e kind) {
    static_assert(sizeof pointer <= sizeof payload_);
    std::memcpy(payload_, &pointer, sizeof pointer);
    kind_ = kind;
  }
  template <class Element>
  std::span<Element const> Elements(Kind_e kind) const;
  template <class Element>
  void Append(Kind_e kind, Element element);

  std::uint32_t payload_[2] = {0, 0};  // a 32-bit payload, or the two halves of a pointer
  Kind_e kind_ = eEmpty;
};
