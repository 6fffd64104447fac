#include "repora/model/value.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

using repora::ChunkMemory;
using repora::ShareCount;

// The contents of every kind begin with the count, as those of a text do.
struct QELValue::Texts {
  ShareCount count;
  std::vector<std::string> texts;
};

// Followed by its elements.
struct QELValue::Numbers {
  ShareCount count;
  std::uint32_t size;  // both in bytes
  std::uint32_t capacity;
  std::uint32_t unused;

  void* Begin() { return this + 1; }

  static Numbers* Make(std::size_t capacity) {
    if (capacity > UINT32_MAX) throw std::length_error("vector of 4 GiB or more");
    auto const part = ChunkMemory::Take(ChunkMemory::kContents, sizeof(Numbers) + capacity);
    return new (part.memory)
        Numbers{ShareCount(part.in_chunk), 0, static_cast<std::uint32_t>(capacity), 0};
  }
  static void Release(Numbers* numbers) {
    if (numbers->count.Drop())
      ChunkMemory::Give(ChunkMemory::kContents, {numbers, numbers->count.InChunk()},
                        sizeof(Numbers) + numbers->capacity);
  }
};

QELValue::QELValue(char const* text) : QELValue(std::string_view(text ? text : "")) {}

QELValue::QELValue(std::string_view text) : QELValue(repora::SharedText(text)) {}

QELValue::QELValue(repora::SharedText text) {
  SetPointer(std::move(text).Detach(), eText);
}

QELValue::QELValue(std::vector<std::string> const& texts) {
  SetPointer(new Texts{ShareCount(false), texts}, eTextVector);
}

QELValue::QELValue(QELShortId reference) : payload_{reference.Id(), 0}, kind_(eShortId) {}

QELValue QELValue::FromInteger(std::int32_t value) {
  QELValue result;
  result.payload_[0] = static_cast<std::uint32_t>(value);
  result.kind_ = eInteger;
  return result;
}

QELValue QELValue::FromBoolean(bool value) {
  QELValue result;
  result.payload_[0] = value ? 1 : 0;
  result.kind_ = eBoolean;
  return result;
}

QELValue QELValue::FromShortIds(std::span<std::uint32_t const> ids) {
  QELValue result;
  if (ids.empty()) return result;
  auto* const numbers = Numbers::Make(ids.size_bytes());
  std::memcpy(numbers->Begin(), ids.data(), ids.size_bytes());
  numbers->size = numbers->capacity;
  result.SetPointer(numbers, eShortIdVector);
  return result;
}

template <class Element>
std::span<Element const> QELValue::Elements(Kind_e kind) const {
  if (kind_ != kind) return {};
  auto* const numbers = static_cast<Numbers*>(Pointer());
  return {static_cast<Element const*>(numbers->Begin()), numbers->size / sizeof(Element)};
}

template <class Element>
void QELValue::Append(Kind_e kind, Element element) {
  if (kind_ != eEmpty && kind_ != kind) return;
  auto* numbers = kind_ == eEmpty ? nullptr : static_cast<Numbers*>(Pointer());
  auto const size = numbers ? std::size_t{numbers->size} : 0;
  if (!numbers || numbers->count.IsShared() || size == numbers->capacity) {
    auto* const larger = Numbers::Make(std::max(sizeof element, 2 * size));
    if (numbers) {
      std::memcpy(larger->Begin(), numbers->Begin(), size);
      Numbers::Release(numbers);
    }
    numbers = larger;
    SetPointer(numbers, kind);
  }
  std::memcpy(static_cast<char*>(numbers->Begin()) + size, &element, sizeof element);
  numbers->size = static_cast<std::uint32_t>(size + sizeof element);
}

QELValue& QELValue::operator+=(QELShortId reference) {
  Append(eShortIdVector, reference.Id());
  return *this;
}

QELValue& QELValue::operator+=(char const* text) {
  if (kind_ == eEmpty) SetPointer(new Texts{ShareCount(false), {}}, eTextVector);
  if (kind_ != eTextVector) return *this;
  auto* contents = static_cast<Texts*>(Pointer());
  if (contents->count.IsShared()) {
    auto* const copy = new Texts{ShareCount(false), contents->texts};
    contents->count.Drop();
    SetPointer(copy, eTextVector);
    contents = copy;
  }
  contents->texts.emplace_back(text ? text : "");
  return *this;
}

QELValue& QELValue::operator+=(std::int64_t number) {
  Append(eInt64Vector, number);
  return *this;
}

std::span<std::uint32_t const> QELValue::ShortIds() const {
  return Elements<std::uint32_t>(eShortIdVector);
}

std::span<std::int64_t const> QELValue::Int64s() const {
  return Elements<std::int64_t>(eInt64Vector);
}

std::int32_t QELValue::Integer() const {
  return kind_ == eInteger || kind_ == eBoolean ? std::bit_cast<std::int32_t>(payload_[0]) : 0;
}

bool QELValue::Boolean() const {
  return (kind_ == eBoolean || kind_ == eInteger) && payload_[0] != 0;
}

std::string QELValue::AsString(bool /*full*/) const {
  auto const join = [](auto const& elements, auto text) {
    std::string result;
    char const* separator = "";
    for (auto const& element : elements) {
      result += separator;
      result += text(element);
      separator = ", ";
    }
    return result;
  };
  auto const number = [](auto value) { return std::to_string(value); };
  switch (kind_) {
    case eEmpty: return {};
    case eInteger: return std::to_string(Integer());
    case eBoolean: return Boolean() ? "true" : "false";
    case eShortId: return std::to_string(ShortId());
    case eText: return String();
    case eTextVector:
      return join(static_cast<Texts const*>(Pointer())->texts,
                  [](std::string const& text) { return text; });
    case eShortIdVector: return join(ShortIds(), number);
    case eInt64Vector: return join(Int64s(), number);
  }
  return {};
}

bool QELValue::GetStringVector(std::vector<std::string>& texts) const {
  texts.clear();
  if (kind_ == eTextVector) texts = static_cast<Texts const*>(Pointer())->texts;
  return kind_ == eTextVector;
}

bool QELValue::GetShortIdVector(std::vector<QELShortId>& references) const {
  references.clear();
  for (auto const id : ShortIds()) references.emplace_back(id);
  return kind_ == eShortIdVector;
}

bool QELValue::GetInt64Vector(std::vector<std::int64_t>& numbers) const {
  auto const elements = Int64s();
  numbers.assign(elements.begin(), elements.end());
  return kind_ == eInt64Vector;
}

bool operator==(QELValue const& a, QELValue const& b) {
  if (a.kind_ != b.kind_) return false;
  switch (a.kind_) {
    case QELValue::eText: return a.View() == b.View();
    case QELValue::eTextVector:
      return static_cast<QELValue::Texts const*>(a.Pointer())->texts ==
             static_cast<QELValue::Texts const*>(b.Pointer())->texts;
    case QELValue::eShortIdVector: return std::ranges::equal(a.ShortIds(), b.ShortIds());
    case QELValue::eInt64Vector: return std::ranges::equal(a.Int64s(), b.Int64s());
    default: return a.payload_[0] == b.payload_[0];
  }
}

void QELValue::Clean() {
  switch (kind_) {
    case eText: repora::SharedText::Adopt(Pointer()); break;
    case eTextVector:
      if (auto* const texts = static_cast<Texts*>(Pointer()); texts->count.Drop()) delete texts;
      break;
    case eShortIdVector:
    case eInt64Vector: Numbers::Release(static_cast<Numbers*>(Pointer())); break;
    default: break;
  }
  payload_[0] = payload_[1] = 0;
  kind_ = eEmpty;
}
