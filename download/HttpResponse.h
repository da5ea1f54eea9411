// Marlux 3. Reading an HTTP answer as it comes in, in slices of any size. Knows no sockets and no windows.
//
//   HttpResponse response(body);
//   waiting.erase(0, response.Feed(waiting));    // after each arrival, with all that was not taken before
//
//   answer := { header with "100 Continue" } header ( length-body | chunks )
//   header := lines, ended by CR LF CR LF or by LF LF
//   chunks := { size-line data } size-line of 0, after which everything is ignored
//   size-line := white space, number as "%x" reads it, anything, CR LF        (the CR LF behind data is white space)
//
// "transfer-encoding:" with any value means chunks. "content-length:" is read from the 17th character of its line on;
// negative and absurd lengths count as 0. The later of the two holds. With neither, or with a length of 0, nothing is
// taken any more and the answer is never done.
//
// Time is linear in the bytes of the answer, however they are sliced.
#pragma once

#include <string_view>

#include "foundation/TmyBuffer.h"
#include "foundation/TmyStringList.h"

class HttpResponse {
 public:
  static constexpr uint32_t kHeaderLimit = 0x10000;  // 64 KiB, for the headers together and for each size line

  // The body is appended to a buffer of the caller's that outlives this object; its maximum is the body's.
  explicit HttpResponse(TmyBuffer& body) : body_(body) {}

  void Restart();  // header expected; the body is left alone
  // All bytes that arrived and were not taken yet; returns how many of them are taken now.
  [[nodiscard]] uint32_t Feed(std::string_view waiting);

  [[nodiscard]] bool IsDone() const noexcept { return state_ == State::kDone; }
  // The answer cannot become whole: header or body too large, or a chunk size that is no number.
  [[nodiscard]] bool IsFailed() const noexcept { return state_ == State::kFailed; }
  [[nodiscard]] const TmyStringList& HeaderLines() const noexcept { return headerLines_; }
  // Bytes of the body, or of its current chunk, that are still to come.
  [[nodiscard]] uint32_t StillExpected() const noexcept { return remaining_; }
  // The header told the size of the whole body.
  [[nodiscard]] bool IsSizeKnown() const noexcept { return isSizeKnown_; }

 private:
  enum class State { kHeader, kSizeLine, kBody, kDone, kFailed };

  // Each takes one piece and returns its size; 0: it is not whole yet, or the state is final.
  uint32_t Piece(std::string_view waiting);
  uint32_t Header(std::string_view waiting);
  uint32_t SizeLine(std::string_view waiting);
  uint32_t Body(std::string_view waiting);
  uint32_t Fail() noexcept;
  void ReadField(const TmyString& line);
  template <class Ends>
  size_t FindEnd(std::string_view waiting, size_t first, Ends ends) noexcept;
  [[nodiscard]] uint32_t Room() const noexcept;  // bytes that the body may still grow by

  TmyBuffer& body_;
  TmyStringList headerLines_{1024, 0x40000};
  State state_ = State::kHeader;
  bool isChunked_ = false;
  bool isSizeKnown_ = false;
  uint32_t remaining_ = 0;
  size_t scanned_ = 0;   // bytes of the current piece in which its end was not found
  size_t overhead_ = 0;  // bytes of headers, or of lines since the last chunk, that were taken
};
