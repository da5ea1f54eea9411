#include "download/HttpResponse.h"

#include "tests/support/Test.h"

namespace {

constexpr uint32_t kBodyLimit = 0x1000000;

// State, number of header lines, body and bytes still expected, when it comes in slices of this size.
std::string InSlices(std::string_view answer, size_t size) {
  TmyBuffer body(4096, kBodyLimit);
  HttpResponse response(body);
  std::string waiting;
  for (size_t at = 0; at < answer.size(); at += size) {
    waiting += answer.substr(at, size);
    waiting.erase(0, response.Feed(waiting));
  }
  return (response.IsDone()     ? "done "
          : response.IsFailed() ? "failed "
                                : "open ") +
         std::to_string(response.HeaderLines().Count()) + " " +
         std::string(reinterpret_cast<const char*>(body.Data()), body.Size()) + " " +
         std::to_string(response.StillExpected());
}

const std::string kChunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: identity\r\n\r\n";

const std::tuple<std::string, std::string> kCases[] = {
    {"HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nhello, ignored", "done 3 hello 0"},
    {"HTTP/1.0 404\nX: y\ncOnTeNt-lEnGtH: 3\n\nabc", "done 4 abc 0"},
    {"A\r\nContent-Length:12\r\n\r\nhello", "done 3 he 0"},
    {"HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200\r\nContent-Length: 1\r\n\r\nx", "done 3 x 0"},
    {kChunked + "3\r\nabc\r\n0\r\n\r\n", "done 3 abc 0"},
    {kChunked + "3;name=\"v\"\r\nabc\r\n \t0x0A ;x\r\n\r\n12345678\r\n0\r\nTrailer: 5\r\n\r\n",
     "done 3 abc\r\n12345678 0"},
    {kChunked + "2\r\nab+2\r\ncd\r\n\r\n-0\r\n", "done 3 abcd 0"},
    {kChunked + "2\r\nab\r\nnot a number\r\n", "failed 3 ab 0"},
    {kChunked + "fffffffff\r\n", "failed 3  4294967295"},
    {kChunked + "1\r\nx\r\n1000000\r\n", "failed 3 x 16777216"},
    {"A\r\nContent-Length: 2\r\nTransfer-Encoding: x\r\n\r\n1\r\na\r\n0\r\n", "done 4 a 0"},
    {"A\r\nContent-Length: -5\r\n\r\nabcde", "open 3  0"},
    {"A\r\nContent-Length: 4294967297\r\n\r\nabcde", "open 3  0"},
    {"A\r\nContent-Length: 16777216\r\n\r\nx", "open 3 x 16777215"},
    {"A\r\nContent-Length: 16777217\r\n\r\nx", "failed 3  16777217"},
    {"\n\n", "open 0  0"},  // an end is looked for from the fourth character on
};

// Slices of every other size are cut by a fuzz target.
TEST(HttpResponseTest, AnAnswerIsTheSameWholeAndInCharacters) {
  for (const auto& [answer, outcome] : kCases) {
    for (const size_t size : {size_t{1}, answer.size()}) EXPECT_EQ(InSlices(answer, size), outcome) << answer;
  }
}

TEST(HttpResponseTest, HeadersAndSizeLinesHaveALimit) {
  const std::string header = "A\r\nContent-Length: 1\r\nX: ";
  const std::string full = header + std::string(HttpResponse::kHeaderLimit - header.size() - 4, 'x') + "\r\n\r\ny";
  EXPECT_EQ(InSlices(full, 1460), "done 4 y 0");
  EXPECT_EQ(InSlices("A: long\r\n" + full, 1460), "failed 0  0");
  EXPECT_EQ(InSlices(kChunked + std::string(HttpResponse::kHeaderLimit + 1, ' '), 1460), "failed 3  0");
}

}  // namespace
