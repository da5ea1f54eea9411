#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "foundation/TmyString.h"

// The parts of TmyString that look at a text or derive another from it; none of them knows how a text is stored.

namespace {

std::string_view ViewOf(const char* text) noexcept {
  return text ? std::string_view(text) : std::string_view();
}

int32_t PositionOf(size_t found) noexcept {
  return found == std::string_view::npos ? -1 : static_cast<int32_t>(found);
}

bool EqualNoCase(const char* left, const char* right, size_t count) noexcept {
#ifdef _WIN32
  return _strnicmp(left, right, count) == 0;
#else
  return strncasecmp(left, right, count) == 0;
#endif
}

template <class Map>
TmyString Mapped(const TmyString& text, Map map) {
  TmyString result(text.View());
  if (result.IsEmpty()) return result;
  char* characters = result.WritableAt(0);
  std::transform(characters, characters + result.Length(), characters,
                 [map](char character) { return static_cast<char>(map(static_cast<unsigned char>(character))); });
  return result;
}

bool IsTrimmed(char character) noexcept {
  return static_cast<signed char>(character) <= ' ';
}

}  // namespace

int32_t TmyString::Find(const char* text, uint32_t start) const noexcept {
  return PositionOf(View().find(ViewOf(text), start));
}

int32_t TmyString::FindNoCase(const char* text, uint32_t start) const noexcept {
  const std::string_view key = ViewOf(text);
  for (uint64_t i = start; i + key.size() <= Length(); ++i) {
    if (EqualNoCase(Chars() + i, key.data(), key.size())) return static_cast<int32_t>(i);
  }
  return -1;
}

int32_t TmyString::FindChar(char character, uint32_t start) const noexcept {
  return PositionOf(View().find(character, start));
}

long TmyString::ToLong(bool hexadecimal) const noexcept {
  // Numbers too large for 32 bits stop at the largest; eight hexadecimal digits give the number of those bits.
  return hexadecimal ? static_cast<long>(std::strtoul(Chars(), nullptr, 16)) : std::strtol(Chars(), nullptr, 10);
}

std::string_view TmyString::TrimView(std::string_view text) noexcept {
  while (!text.empty() && IsTrimmed(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsTrimmed(text.back())) text.remove_suffix(1);
  return text;
}

TmyString TmyString::Lower() const {
  return Mapped(*this, [](int character) { return std::tolower(character); });
}

TmyString TmyString::Upper() const {
  return Mapped(*this, [](int character) { return std::toupper(character); });
}

TmyString TmyString::Quote(char doubled) const {
  const auto extra = static_cast<uint64_t>(std::count(View().begin(), View().end(), doubled));
  const uint64_t length = Length() + extra + 2;
  if (length > INT32_MAX) return {};
  TmyString result = Repeat('"', static_cast<uint32_t>(length));
  if (result.IsEmpty()) return result;
  char* to = result.WritableAt(0);
  for (const char character : View()) {
    *++to = character;
    if (character == doubled) *++to = character;
  }
  return result;
}

TmyString TmyString::FilePath() const {
  const size_t slash = View().rfind('\\');
  return slash == std::string_view::npos ? TmyString() : TmyString(View().substr(0, slash));
}

TmyString TmyString::FileName() const {
  const size_t slash = View().rfind('\\');
  return slash == std::string_view::npos ? *this : TmyString(View().substr(slash + 1));
}

TmyString TmyString::FileExt() const {
  const size_t dot = View().rfind('.');
  if (dot == std::string_view::npos || dot + 1 == Length()) return WithRoom(0);
  return TmyString(View().substr(dot + 1));
}

TmyString TmyString::RemoveExt() const {
  const size_t found = View().find_last_of(".\\");
  if (found == std::string_view::npos || View()[found] == '\\') return *this;
  return TmyString(View().substr(0, found));
}
