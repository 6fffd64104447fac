#include "repora/model/value.h"

#include <algorithm>
#include <bit>
#include <cstring>

// Text elements carry their own terminator-free strings; references and 64-bit numbers share one
// layout of plain numbers.
struct QELValue::Vectors {
  std::uint32_t references = 1;
  std::vector<std::string> texts;
  std::vector<std::uint32_t> ids;
  std::vector<std::int64_t> numbers;
};

QELValue::QELValue(char const* text) : QELValue(std::string_view(text ? text : "")) {}

QELValue::QELValue(std::string_view text) : QELValue(repora::SharedText(text)) {}

QELValue::QELValue(repora::SharedText text) {
  SetPointer(std::move(text).Detach(), eText);
}

QELValue::QELValue(std::vector<std::string> const& texts) {
  SetPointer(new Vectors{1, texts, {}, {}}, eTextVector);
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

QELValue::QELValue(QELValue const& other)
    : payload_{other.payload_[0], other.payload_[1]}, kind_(other.kind_) {
  if (kind_ == eText)
    SetPointer(repora::SharedText::Share(other.Pointer()).Detach(), eText);
  else if (auto const* contents = Contents())
    ++const_cast<Vectors*>(contents)->references;
}

void QELValue::Swap(QELValue& other) noexcept {
  std::swap(payload_[0], other.payload_[0]);
  std::swap(payload_[1], other.payload_[1]);
  std::swap(kind_, other.kind_);
}

void* QELValue::Pointer() const {
  void* pointer = nullptr;
  std::memcpy(&pointer, payload_, sizeof pointer);
  return pointer;
}

void QELValue::SetPointer(void* pointer, Kind_e kind) {
  static_assert(sizeof pointer <= sizeof payload_);
  std::memcpy(payload_, &pointer, sizeof pointer);
  kind_ = kind;
}

QELValue::Vectors const* QELValue::Contents() const {
  return kind_ == eTextVector || kind_ == eShortIdVector || kind_ == eInt64Vector
             ? static_cast<Vectors const*>(Pointer())
             : nullptr;
}

QELValue::Vectors* QELValue::StartAppend(Kind_e kind) {
  if (kind_ == eEmpty) SetPointer(new Vectors, kind);
  if (kind_ != kind) return nullptr;
  auto* contents = static_cast<Vectors*>(Pointer());
  if (contents->references > 1) {
    auto* const copy = new Vectors(*contents);
    copy->references = 1;
    --contents->references;
    SetPointer(copy, kind);
    contents = copy;
  }
  return contents;
}

QELValue& QELValue::operator+=(QELShortId reference) {
  if (auto* contents = StartAppend(eShortIdVector)) contents->ids.push_back(reference.Id());
  return *this;
}

QELValue& QELValue::operator+=(char const* text) {
  if (auto* contents = StartAppend(eTextVector)) contents->texts.emplace_back(text ? text : "");
  return *this;
}

QELValue& QELValue::operator+=(std::int64_t number) {
  if (auto* contents = StartAppend(eInt64Vector)) contents->numbers.push_back(number);
  return *this;
}

std::int32_t QELValue::Integer() const {
  return kind_ == eInteger || kind_ == eBoolean ? std::bit_cast<std::int32_t>(payload_[0]) : 0;
}

bool QELValue::Boolean() const {
  return (kind_ == eBoolean || kind_ == eInteger) && payload_[0] != 0;
}

std::uint32_t QELValue::ShortId() const {
  return kind_ == eShortId ? payload_[0] : 0;
}

repora::SharedText QELValue::ShareText() const {
  return kind_ == eText ? repora::SharedText::Share(Pointer()) : repora::SharedText();
}

std::string_view QELValue::View() const {
  return kind_ == eText ? ShareText().view() : std::string_view();
}

std::string QELValue::AsString(bool /*full*/) const {
  auto const join = [](auto const& elements, auto text) {
    std::string result;
    for (auto const& element : elements) {
      if (&element != elements.data()) result += ", ";
      result += text(element);
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
    case eTextVector: return join(Contents()->texts, [](std::string const& text) { return text; });
    case eShortIdVector: return join(Contents()->ids, number);
    case eInt64Vector: return join(Contents()->numbers, number);
  }
  return {};
}

bool QELValue::GetStringVector(std::vector<std::string>& texts) const {
  texts.clear();
  if (kind_ == eTextVector) texts = Contents()->texts;
  return kind_ == eTextVector;
}

bool QELValue::GetShortIdVector(std::vector<QELShortId>& references) const {
  references.clear();
  if (kind_ == eShortIdVector)
    for (auto const id : Contents()->ids) references.emplace_back(id);
  return kind_ == eShortIdVector;
}

bool QELValue::GetInt64Vector(std::vector<std::int64_t>& numbers) const {
  numbers.clear();
  if (kind_ == eInt64Vector) numbers = Contents()->numbers;
  return kind_ == eInt64Vector;
}

bool operator==(QELValue const& a, QELValue const& b) {
  if (a.kind_ != b.kind_) return false;
  if (a.kind_ == QELValue::eText) return a.View() == b.View();
  if (auto const* left = a.Contents()) {
    auto const* right = b.Contents();
    return left->texts == right->texts && left->ids == right->ids &&
           left->numbers == right->numbers;
  }
  return a.payload_[0] == b.payload_[0];
}

void QELValue::Clean() {
  if (kind_ == eText)
    repora::SharedText::Adopt(Pointer());
  else if (auto* contents = const_cast<Vectors*>(Contents());
           contents && --contents->references == 0)
    delete contents;
  payload_[0] = payload_[1] = 0;
  kind_ = eEmpty;
}
