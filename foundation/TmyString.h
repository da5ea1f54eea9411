// Marlux 3. The one string type: 8-bit text in the system's ANSI code page, shared until somebody changes it.
//
//   TmyString name = TmyString("eibi") + ".txt";
//   TmyString copy = name;         // shares the block
//   copy += ".bak";                // makes its own block first; `name` stays "eibi.txt"
//
// No operation fails loudly. When memory is short an operation leaves the text as it was, or gives the empty string
// where it would have made a new one. Strings are not to be copied by two threads at once: only the release of a block
// is interlocked.
#pragma once

#include <string_view>

#include "foundation/Compiler.h"

class TmyString {
 public:
  TmyString() noexcept;
  // Null gives the empty string. Implicit, because literals are the common case.
  TmyString(const char* text);  // NOLINT(google-explicit-constructor)
  TmyString(const char* text, uint32_t count);
  explicit TmyString(std::string_view text);
  explicit TmyString(const wchar_t* text);  // converted to the ANSI code page
  TmyString(const TmyString& other) noexcept;
  TmyString(TmyString&& other) noexcept;
  TmyString& operator=(const TmyString& other) noexcept;
  TmyString& operator=(TmyString&& other) noexcept;
  ~TmyString();

  [[nodiscard]] static TmyString WithRoom(uint32_t characters);  // empty, room for at least 16 characters
  [[nodiscard]] static TmyString Repeat(char character, uint32_t count);
  // Zeros fill up to `minDigits` (after a minus sign), then blanks on the left up to `minWidth`.
  [[nodiscard]] static TmyString FromDecimal(int64_t value, uint32_t minDigits = 0, uint32_t minWidth = 0);
  [[nodiscard]] static TmyString FromHex(uint64_t value, uint32_t minDigits = 0);  // lower case, "0" for zero

  [[nodiscard]] const char* Chars() const noexcept;  // zero-terminated, valid until the string changes
  [[nodiscard]] std::string_view View() const noexcept { return {Chars(), Length()}; }
  [[nodiscard]] uint32_t Length() const noexcept;
  [[nodiscard]] uint32_t Capacity() const noexcept;  // bytes for characters, the terminating zero included
  [[nodiscard]] bool IsEmpty() const noexcept { return Length() == 0; }
  [[nodiscard]] uint32_t Tag() const noexcept;
  void SetTag(uint32_t tag);
  // For writing one character. An index at or beyond the capacity gives a scratch byte that nobody reads.
  [[nodiscard]] char* WritableAt(uint32_t index);

  TmyString& operator+=(const TmyString& other);
  TmyString& operator+=(const char* text);
  TmyString& operator+=(char character);
  TmyString& Append(std::string_view text);
  friend TmyString operator+(const TmyString& left, const TmyString& right);
  friend TmyString operator+(const char* left, const TmyString& right);

  // Replaces the text by the formatted one; takes the C runtime's formats ("%I64d" for 64 bits on Windows).
  void Format(const char* format, ...) MARLUX_PRINTF(2, 3);
  friend TmyString Formatted(const char* format, ...);

  [[nodiscard]] long ToLong(bool hexadecimal = false) const noexcept;  // unreadable text gives 0

  [[nodiscard]] TmyString Mid(uint32_t start, uint32_t count) const;
  void RemoveRight(uint32_t count);
  void RemoveLeft(uint32_t count);
  void Trim();  // see TrimView
  [[nodiscard]] TmyString Lower() const;
  [[nodiscard]] TmyString Upper() const;
  [[nodiscard]] TmyString Quote(char doubled) const;  // in double quotes, each `doubled` inside written twice

  // Byte-wise on unsigned characters, case-sensitive.
  [[nodiscard]] int Compare(const TmyString& other) const noexcept;  // -1, 0 or 1
  friend bool operator==(const TmyString& left, const TmyString& right) noexcept;
  friend bool operator==(const TmyString& left, const char* right) noexcept;
  friend bool operator>(const TmyString& left, const TmyString& right) noexcept { return left.Compare(right) > 0; }

  // Positions, or -1 when there is none at or after `start`.
  [[nodiscard]] int32_t Find(const char* text, uint32_t start = 0) const noexcept;
  [[nodiscard]] int32_t FindNoCase(const char* text, uint32_t start = 0) const noexcept;
  [[nodiscard]] int32_t FindChar(char character, uint32_t start = 0) const noexcept;

  // Paths with backslashes: everything before or after the last one; the ending after the last "." without the dot
  // (the scan does not stop at a backslash); the text without that ending.
  [[nodiscard]] TmyString FilePath() const;
  [[nodiscard]] TmyString FileName() const;
  [[nodiscard]] TmyString FileExt() const;
  [[nodiscard]] TmyString RemoveExt() const;

  // The text without the bytes at its ends that are 32 or less as signed numbers: blanks, control characters and also
  // 0x80 to 0xFF. Schedules in Latin-1 rely on the latter.
  [[nodiscard]] static std::string_view TrimView(std::string_view text) noexcept;

 private:
  struct Block;
  explicit TmyString(Block* adopted) noexcept : block_(adopted) {}
  [[nodiscard]] bool MakeUnique(uint32_t room);
  void Release() noexcept;

  Block* block_;  // counted; the empty string shares one static block
};

// A new string from a printf-style format.
[[nodiscard]] TmyString Formatted(const char* format, ...) MARLUX_PRINTF(1, 2);

// Copies a text into a fixed field of a record, cut to the field's size less one, the rest filled with zeros.
template <size_t kSize>
void CopyText(char (&field)[kSize], std::string_view text) noexcept {
  const size_t count = text.size() < kSize - 1 ? text.size() : kSize - 1;
  size_t i = 0;
  for (; i < count; ++i) field[i] = text[i];
  for (; i < kSize; ++i) field[i] = 0;
}
