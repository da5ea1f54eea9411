#include "foundation/TmyString.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "foundation/LostTexts.h"

// A header and, directly behind it, `capacity` characters. Behind those lies one more byte that is always zero: who
// overwrites the terminator through WritableAt still leaves a terminated text.
struct TmyString::Block {
  uint32_t tag;
  uint32_t length;
  uint32_t capacity;
  uint32_t references;

  [[nodiscard]] char* Chars() noexcept { return reinterpret_cast<char*>(this) + sizeof(Block); }

  // The block of every empty string that was not made otherwise. It lies in read-only memory and counts two references
  // for ever, so that it always looks shared; nobody raises, lowers or frees it.
  [[nodiscard]] static Block* Empty() noexcept;
  // Null when memory is short. Length and tag are 0; the characters are not cleared, the first is the terminator.
  [[nodiscard]] static Block* Allocate(uint64_t capacity) noexcept;
  [[nodiscard]] static Block* AllocateOrEmpty(uint64_t capacity) noexcept;
  // A block of exactly this text, `capacity` at least count + 1; the empty block when memory is short.
  [[nodiscard]] static Block* Copy(const char* text, size_t count, uint64_t capacity) noexcept;

  // Null when the format cannot be rendered or memory is short.
  [[nodiscard]] static Block* Render(const char* format, va_list arguments) noexcept;

  void SetLength(uint32_t count) noexcept {
    length = count;
    Chars()[count] = 0;
  }
};

namespace {

// Positions are signed 32-bit numbers, and no heap block of a 32-bit process is larger.
constexpr uint64_t kMaximumCapacity = 0x7FFFFF00;
constexpr uint32_t kSmallestRoom = 16;
constexpr uint64_t kDecimalCapacity = 33;
constexpr uint64_t kHexCapacity = 18;

std::string_view ViewOf(const char* text) noexcept {
  return text ? std::string_view(text) : std::string_view();
}

char scratch = 0;
uint32_t lostTexts = 0;

// Both: the length without the terminating zero, negative when the format cannot be rendered. On Windows its own
// formatter, because callers use its "%I64d"; the cross compiler's headers would substitute another.
int MeasureFormatted(const char* format, va_list arguments) noexcept {
  va_list copy;  // NOLINT(*-init-variables): by va_copy
  va_copy(copy, arguments);
#ifdef _WIN32
  const int length = _vscprintf(format, copy);
#else
  const int length = vsnprintf(nullptr, 0, format, copy);
#endif
  va_end(copy);
  return length;
}

int WriteFormatted(char* to, size_t size, const char* format, va_list arguments) noexcept {
#ifdef _WIN32
  return _vsnprintf(to, size, format, arguments);
#else
  return vsnprintf(to, size, format, arguments);
#endif
}

}  // namespace

TmyString::Block* TmyString::Block::Empty() noexcept {
  struct EmptyBlock {
    Block header;
    char characters[4];
  };
  static constexpr EmptyBlock kEmpty = {{0, 0, 1, 2}, {0, 0, 0, 0}};
  return reinterpret_cast<Block*>(const_cast<EmptyBlock*>(&kEmpty));  // NOLINT(*-const-cast): see above, never written
}

TmyString::Block* TmyString::Block::Allocate(uint64_t capacity) noexcept {
  static_assert(offsetof(Block, tag) == 0 && offsetof(Block, length) == 4 && offsetof(Block, capacity) == 8);
  static_assert(offsetof(Block, references) == 12 && sizeof(Block) == 16);
  if (capacity > kMaximumCapacity) return nullptr;
  auto* block = static_cast<Block*>(std::malloc(sizeof(Block) + static_cast<size_t>(capacity) + 1));
  if (!block) {
    ++lostTexts;
    return nullptr;
  }
  *block = {0, 0, static_cast<uint32_t>(capacity), 1};
  block->Chars()[0] = 0;
  block->Chars()[capacity] = 0;
  return block;
}

TmyString::Block* TmyString::Block::AllocateOrEmpty(uint64_t capacity) noexcept {
  Block* block = Allocate(capacity);
  return block ? block : Empty();
}

TmyString::Block* TmyString::Block::Copy(const char* text, size_t count, uint64_t capacity) noexcept {
  Block* block = Allocate(capacity);
  if (!block) return Empty();
  if (count > 0) std::memcpy(block->Chars(), text, count);
  block->SetLength(static_cast<uint32_t>(count));
  return block;
}

TmyString::Block* TmyString::Block::Render(const char* format, va_list arguments) noexcept {
  const int length = format ? MeasureFormatted(format, arguments) : -1;
  if (length < 0) return nullptr;
  const auto count = static_cast<uint32_t>(length);
  Block* block = Allocate(uint64_t{count} + 1);
  if (!block) return nullptr;
  WriteFormatted(block->Chars(), size_t{count} + 1, format, arguments);
  block->SetLength(count);
  return block;
}

uint32_t LostTexts() noexcept {
  return lostTexts;
}

TmyString::TmyString() noexcept : block_(Block::Empty()) {}

TmyString::TmyString(const char* text) : TmyString(ViewOf(text)) {}

TmyString::TmyString(const char* text, uint32_t count)
    : TmyString(text ? std::string_view(text, count) : std::string_view()) {}

TmyString::TmyString(std::string_view text)
    : block_(text.empty() ? Block::Empty() : Block::Copy(text.data(), text.size(), uint64_t{text.size()} + 1)) {}

TmyString::TmyString(const TmyString& other) noexcept : block_(other.block_) {
  if (block_ != Block::Empty()) ++block_->references;
}

TmyString::TmyString(TmyString&& other) noexcept : block_(other.block_) {
  other.block_ = Block::Empty();
}

TmyString& TmyString::operator=(const TmyString& other) noexcept {
  if (block_ != other.block_) {
    TmyString copy(other);
    std::swap(block_, copy.block_);
  }
  return *this;
}

TmyString& TmyString::operator=(TmyString&& other) noexcept {
  std::swap(block_, other.block_);
  return *this;
}

TmyString::~TmyString() {
  Release();
}

void TmyString::Release() noexcept {
  if (block_ == Block::Empty()) return;
  if (__atomic_sub_fetch(&block_->references, 1, __ATOMIC_ACQ_REL) == 0) std::free(block_);
}

TmyString TmyString::WithRoom(uint32_t characters) {
  return TmyString(Block::AllocateOrEmpty(uint64_t{std::max(characters, kSmallestRoom)} + 1));
}

TmyString TmyString::Repeat(char character, uint32_t count) {
  Block* block = Block::Allocate(std::max<uint64_t>(uint64_t{count} + 1, kSmallestRoom) + 1);
  if (!block) return {};
  std::memset(block->Chars(), character, count);
  block->SetLength(count);
  return TmyString(block);
}

TmyString TmyString::FromDecimal(int64_t value, uint32_t minDigits, uint32_t minWidth) {
  std::array<char, 20> reversed{};
  uint32_t digits = 0;
  uint64_t rest = value < 0 ? 0 - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
  do {
    reversed[digits++] = static_cast<char>('0' + rest % 10);
    rest /= 10;
  } while (rest > 0);

  const uint64_t zeros = minDigits > digits ? minDigits - digits : 0;
  const uint64_t signs = value < 0 ? 1 : 0;
  const uint64_t length = std::max<uint64_t>(signs + zeros + digits, minWidth);
  Block* block = Block::Allocate(std::max(length + 1, kDecimalCapacity));
  if (!block) return {};
  std::memset(block->Chars(), ' ', static_cast<size_t>(length - signs - zeros - digits));
  char* end = block->Chars() + length;
  for (uint32_t i = 0; i < digits; ++i) *--end = reversed[i];
  for (uint64_t i = 0; i < zeros; ++i) *--end = '0';
  if (value < 0) *--end = '-';
  block->SetLength(static_cast<uint32_t>(length));
  return TmyString(block);
}

TmyString TmyString::FromHex(uint64_t value, uint32_t minDigits) {
  const auto digits = (static_cast<uint32_t>(std::bit_width(value)) + 3) / 4;
  const uint32_t length = std::max({digits, minDigits, 1U});
  Block* block = Block::Allocate(std::max(uint64_t{length} + 1, kHexCapacity));
  if (!block) return {};
  char* end = block->Chars() + length;
  while (end != block->Chars()) {
    *--end = "0123456789abcdef"[value & 15];
    value >>= 4;
  }
  block->SetLength(length);
  return TmyString(block);
}

void TmyString::Format(const char* format, ...) {
  va_list arguments;  // NOLINT(*-init-variables): by va_start
  va_start(arguments, format);
  Block* text = Block::Render(format, arguments);  // aside, because the arguments may be our own characters
  va_end(arguments);
  if (!text) return;
  if (MakeUnique(text->length + 1)) {
    std::memcpy(block_->Chars(), text->Chars(), text->length);
    block_->SetLength(text->length);
  }
  std::free(text);
}

TmyString Formatted(const char* format, ...) {
  va_list arguments;  // NOLINT(*-init-variables): by va_start
  va_start(arguments, format);
  TmyString::Block* text = TmyString::Block::Render(format, arguments);
  va_end(arguments);
  return text ? TmyString(text) : TmyString();
}

const char* TmyString::Chars() const noexcept {
  return block_->Chars();
}

uint32_t TmyString::Length() const noexcept {
  return block_->length;
}

uint32_t TmyString::Capacity() const noexcept {
  return block_->capacity;
}

uint32_t TmyString::Tag() const noexcept {
  return block_->tag;
}

void TmyString::SetTag(uint32_t tag) {
  if (MakeUnique(0)) block_->tag = tag;
}

char* TmyString::WritableAt(uint32_t index) {
  // A private copy has room for its text only, so an index behind the text asks for its own room.
  const uint32_t room = block_->references == 1 ? 0 : index + 1;
  if (index < block_->capacity && MakeUnique(room)) return block_->Chars() + index;
  scratch = 0;
  return &scratch;
}

// Makes the text this string's own, with room for `room` bytes. A block that is private already is given exactly that
// room when the text and its terminator fall short of it, even when it had more. False, and nothing changed, when
// memory is short.
bool TmyString::MakeUnique(uint32_t room) {
  const uint32_t length = block_->length;
  if (block_->references != 1) {
    Block* copy = Block::Allocate(std::max(room, length + 1));
    if (!copy) return false;
    std::memcpy(copy->Chars(), block_->Chars(), length);
    std::memset(copy->Chars() + length, 0, copy->capacity - length);
    copy->length = length;
    copy->tag = block_->tag;
    if (block_ != Block::Empty()) --block_->references;
    block_ = copy;
    return true;
  }
  if (length + 1 >= room) return true;
  if (room > kMaximumCapacity) return false;
  auto* moved = static_cast<Block*>(std::realloc(block_, sizeof(Block) + room + 1));
  if (!moved) {
    ++lostTexts;
    return false;
  }
  moved->capacity = room;
  std::memset(moved->Chars() + length, 0, room - length + 1);
  block_ = moved;
  return true;
}

TmyString& TmyString::operator+=(const TmyString& other) {
  return Append(other.View());
}

TmyString& TmyString::operator+=(const char* text) {
  return Append(ViewOf(text));
}

TmyString& TmyString::operator+=(char character) {
  const uint32_t length = Length();
  if (MakeUnique(length + 2)) {
    block_->Chars()[length] = character;
    block_->SetLength(length + 1);
  }
  return *this;
}

TmyString& TmyString::Append(std::string_view text) {
  const uint32_t length = Length();
  const uint64_t room = uint64_t{length} + text.size() + 1;
  if (text.empty() || room > kMaximumCapacity) return *this;
  // The text may be a part of this string, whose block is about to move.
  const uintptr_t offset = reinterpret_cast<uintptr_t>(text.data()) - reinterpret_cast<uintptr_t>(Chars());
  const bool own = offset <= length;
  if (!MakeUnique(static_cast<uint32_t>(room))) return *this;
  const char* source = own ? block_->Chars() + offset : text.data();
  std::memmove(block_->Chars() + length, source, text.size());
  block_->SetLength(length + static_cast<uint32_t>(text.size()));
  return *this;
}

TmyString operator+(const TmyString& left, const TmyString& right) {
  const uint64_t sum = uint64_t{left.Length()} + right.Length();
  TmyString::Block* block =
      TmyString::Block::Copy(left.Chars(), left.Length(), std::max<uint64_t>(sum + 1, kSmallestRoom) + 1);
  if (block == TmyString::Block::Empty()) return {};
  std::memcpy(block->Chars() + left.Length(), right.Chars(), right.Length());
  block->SetLength(static_cast<uint32_t>(sum));
  return TmyString(block);
}

TmyString operator+(const char* left, const TmyString& right) {
  const std::string_view text = ViewOf(left);
  const uint64_t sum = uint64_t{text.size()} + right.Length();
  TmyString::Block* block =
      TmyString::Block::Copy(text.data(), text.size(), std::max<uint64_t>(sum, kSmallestRoom) + 1);
  if (block == TmyString::Block::Empty()) return {};
  std::memcpy(block->Chars() + text.size(), right.Chars(), right.Length());
  block->SetLength(static_cast<uint32_t>(sum));
  return TmyString(block);
}

int TmyString::Compare(const TmyString& other) const noexcept {
  if (block_ == other.block_) return 0;
  const int order = View().compare(other.View());
  return (order > 0) - (order < 0);
}

bool operator==(const TmyString& left, const TmyString& right) noexcept {
  return left.block_ == right.block_ || left.View() == right.View();
}

bool operator==(const TmyString& left, const char* right) noexcept {
  return left.View() == ViewOf(right);
}

TmyString TmyString::Mid(uint32_t start, uint32_t count) const {
  if (start >= Length()) return {};
  return TmyString(View().substr(start, count));
}

void TmyString::RemoveRight(uint32_t count) {
  if (count == 0 || IsEmpty() || !MakeUnique(0)) return;
  block_->SetLength(count < Length() ? Length() - count : 0);
}

void TmyString::RemoveLeft(uint32_t count) {
  if (count == 0 || IsEmpty() || !MakeUnique(0)) return;
  const uint32_t left = count < Length() ? Length() - count : 0;
  if (left > 0) std::memmove(block_->Chars(), block_->Chars() + count, left);
  block_->SetLength(left);
}

void TmyString::Trim() {
  const std::string_view kept = TrimView(View());
  const uint32_t cutLeft = kept.empty() ? 0 : static_cast<uint32_t>(kept.data() - Chars());
  const uint32_t length = static_cast<uint32_t>(kept.size());
  RemoveRight(Length() - cutLeft - length);
  RemoveLeft(cutLeft);
}
