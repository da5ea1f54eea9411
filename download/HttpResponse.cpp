#include "download/HttpResponse.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>

#include "foundation/Trace.h"

namespace {

constexpr std::string_view kWhiteSpace = " \t\n\v\f\r";

bool BeginsWith(const TmyString& line, std::string_view lowerCaseName) {
  return line.Mid(0, static_cast<uint32_t>(lowerCaseName.size())).Lower().View() == lowerCaseName;
}

// As "%d" reads it; 0 for what is negative or does not fit.
uint32_t ContentLength(const TmyString& line) noexcept {
  constexpr uint32_t kNameAndBlank = 16;
  if (line.Length() <= kNameAndBlank) return 0;
  const long long length = std::strtoll(line.Chars() + kNameAndBlank, nullptr, 10);
  return length < 0 || length > INT32_MAX ? 0 : static_cast<uint32_t>(length);
}

bool IsHexadecimal(char c) noexcept {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// As "%x" reads it: white space, sign, "0x", digits. False when there is no number. One that is negative or does not
// fit comes as the largest, which is above every limit.
bool ReadHexadecimal(std::string_view text, uint32_t& number) noexcept {
  text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
  const bool isNegative = text.starts_with('-');
  if (isNegative || text.starts_with('+')) text.remove_prefix(1);
  const bool hasPrefix = text.starts_with("0x") || text.starts_with("0X");
  if (hasPrefix && text.size() > 2 && IsHexadecimal(text[2])) text.remove_prefix(2);
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, 16);
  if (error == std::errc::invalid_argument) return false;
  if (error == std::errc::result_out_of_range || (isNegative && number != 0)) number = UINT32_MAX;
  return true;
}

}  // namespace

void HttpResponse::Restart() {
  headerLines_.Clear();
  state_ = State::kHeader;
  isChunked_ = isSizeKnown_ = false;
  remaining_ = 0;
  scanned_ = overhead_ = 0;
}

uint32_t HttpResponse::Feed(std::string_view waiting) {
  uint32_t taken = 0;
  while (const uint32_t piece = Piece(waiting.substr(taken))) {
    taken += piece;
    scanned_ = 0;
  }
  return taken;
}

uint32_t HttpResponse::Piece(std::string_view waiting) {
  switch (state_) {
    case State::kHeader:
      return Header(waiting);
    case State::kSizeLine:
      return SizeLine(waiting);
    case State::kBody:
      return Body(waiting);
    default:
      return 0;
  }
}

uint32_t HttpResponse::Fail() noexcept {
  state_ = State::kFailed;
  return 0;
}

// Where a line feed ends the piece, from its `first` character on, behind that line feed; 0 when none does yet. What
// was scanned once is not scanned again when more has come.
template <class Ends>
size_t HttpResponse::FindEnd(std::string_view waiting, size_t first, Ends ends) noexcept {
  size_t at = waiting.find('\n', std::max(scanned_, first));
  while (at != std::string_view::npos && !ends(at)) at = waiting.find('\n', at + 1);
  const bool isFound = at != std::string_view::npos;
  scanned_ = waiting.size();
  if (overhead_ + (isFound ? at + 1 : waiting.size()) > kHeaderLimit) {
    Fail();
    return 0;
  }
  return isFound ? at + 1 : 0;
}

uint32_t HttpResponse::Header(std::string_view waiting) {
  const size_t size = FindEnd(
      waiting, 3, [waiting](size_t at) { return waiting[at - 1] == '\n' || waiting.substr(at - 3, 3) == "\r\n\r"; });
  if (size == 0) return 0;
  overhead_ += size;
  const std::string_view text = waiting.substr(0, size);
  headerLines_.Clear();
  if (text.find("100 Continue") != std::string_view::npos) return static_cast<uint32_t>(size);  // the real one follows
  headerLines_.SetText(text.data(), static_cast<uint32_t>(size));
  for (uint32_t i = 0; i < headerLines_.Count(); ++i) ReadField(headerLines_.Get(i));
  overhead_ = 0;
  state_ = isChunked_ ? State::kSizeLine : State::kBody;
  isSizeKnown_ = remaining_ > 0;
  if (remaining_ > Room()) return Fail();
  return static_cast<uint32_t>(size);
}

void HttpResponse::ReadField(const TmyString& line) {
  if (BeginsWith(line, "transfer-encoding:")) {
    isChunked_ = true;
    remaining_ = 0;
    Trace::Line("Chunked encoding");
  } else if (BeginsWith(line, "content-length:")) {
    isChunked_ = false;
    remaining_ = ContentLength(line);
    Trace::Line("NON chunked, length=%d", static_cast<int>(remaining_));
  }
}

// "%x" passes over white space, line ends too: a line without anything else is the end of the last chunk's data.
uint32_t HttpResponse::SizeLine(std::string_view waiting) {
  const size_t size = FindEnd(waiting, 1, [waiting](size_t at) { return waiting[at - 1] == '\r'; });
  if (size == 0) return 0;
  const std::string_view line = waiting.substr(0, size);
  overhead_ += size;
  if (line.find_first_not_of(kWhiteSpace) == std::string_view::npos) return static_cast<uint32_t>(size);
  if (!ReadHexadecimal(line, remaining_) || remaining_ > Room()) return Fail();
  Trace::Line("Found chunk size= %d", static_cast<int>(remaining_));
  overhead_ = 0;
  state_ = remaining_ == 0 ? State::kDone : State::kBody;
  return static_cast<uint32_t>(size);
}

// With nothing expected, what comes is left where it is.
uint32_t HttpResponse::Body(std::string_view waiting) {
  const uint32_t count = static_cast<uint32_t>(std::min<size_t>(waiting.size(), remaining_));
  if (count == 0) return 0;
  const uint32_t before = body_.Size();
  body_.SetSize(before + count);
  if (body_.Size() != before + count) return Fail();  // no memory
  std::memcpy(body_.Data() + before, waiting.data(), count);
  remaining_ -= count;
  if (remaining_ == 0) state_ = isChunked_ ? State::kSizeLine : State::kDone;
  return count;
}

uint32_t HttpResponse::Room() const noexcept {
  return body_.Maximum() - body_.Size();
}
