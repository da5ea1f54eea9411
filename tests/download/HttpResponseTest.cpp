#include "download/HttpResponse.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

constexpr uint32_t kBodyLimit = 0x1000000;

// What became of an answer: state, header lines, body, bytes still expected.
class Reading {
 public:
  void Arrive(std::string_view slice) {
    waiting_ += slice;
    waiting_.erase(0, response_.Feed(waiting_));
  }
  [[nodiscard]] std::string Outcome() const {
    const std::string state = response_.IsDone() ? "done" : response_.IsFailed() ? "failed" : "open";
    return state + " " + std::to_string(response_.HeaderLines().Count()) + " " +
           std::string(reinterpret_cast<const char*>(body_.Data()), body_.Size()) + " " +
           std::to_string(response_.StillExpected());
  }

 private:
  TmyBuffer body_{4096, kBodyLimit};
  HttpResponse response_{body_};
  std::string waiting_;
};

// Slices end where `isCut` says so.
template <class IsCut>
std::string InSlices(std::string_view answer, IsCut isCut) {
  Reading reading;
  size_t from = 0;
  for (size_t at = 1; at <= answer.size(); ++at) {
    if (at < answer.size() && !isCut(at)) continue;
    reading.Arrive(answer.substr(from, at - from));
    from = at;
  }
  return reading.Outcome();
}

const std::string kChunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: identity\r\n\r\n";

const struct {
  std::string answer, outcome;
} kCases[] = {
    {"HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nhello, ignored", "done 3 hello 0"},
    {"HTTP/1.0 404\nX: y\ncOnTeNt-lEnGtH: 3\n\nabc", "done 4 abc 0"},
    {"A\r\nContent-Length:12\r\n\r\nhello", "done 3 he 0"},
    {"A\r\nContent-Length: 9\r\n\r\nshort", "open 3 short 4"},
    {"HTTP/1.1 100 Continue\r\n\r\nHTTP/1.1 200\r\nContent-Length: 1\r\n\r\nx", "done 3 x 0"},
    {kChunked + "3\r\nabc\r\n0\r\n\r\n", "done 3 abc 0"},
    {kChunked + "3;name=\"v\"\r\nabc\r\n \t0x0A ;x\r\n\r\n12345678\r\n0\r\nTrailer: 5\r\n\r\n",
     "done 3 abc\r\n12345678 0"},
    {kChunked + "2\r\nab+2\r\ncd\r\n\r\n-0\r\n", "done 3 abcd 0"},
    {kChunked + "5\r\nab", "open 3 ab 3"},
    {kChunked + "2\r\nab\r\nnot a number\r\n", "failed 3 ab 0"},
    {kChunked + "-1\r\n", "failed 3  4294967295"},
    {kChunked + "fffffffff\r\n", "failed 3  4294967295"},
    {kChunked + "1\r\nx\r\n1000000\r\n", "failed 3 x 16777216"},
    {"A\r\nTransfer-Encoding: x\r\nContent-Length: 2\r\n\r\nab", "done 4 ab 0"},
    {"A\r\nContent-Length: 2\r\nTransfer-Encoding: x\r\n\r\n1\r\na\r\n0\r\n", "done 4 a 0"},
    {"A\r\n\r\nnothing tells its length", "open 2  0"},
    {"A\r\nContent-Length: -5\r\n\r\nabcde", "open 3  0"},
    {"A\r\nContent-Length: 4294967297\r\n\r\nabcde", "open 3  0"},
    {"A\r\nContent-Length: 16777216\r\n\r\nx", "open 3 x 16777215"},
    {"A\r\nContent-Length: 16777217\r\n\r\nx", "failed 3  16777217"},
    {"\n\n", "open 0  0"},  // an end is looked for from the fourth character on
    {"\r\n\r\n", "open 2  0"},
};

TEST(HttpResponseTest, EverySlicingOfAnAnswerGivesTheSame) {
  for (const auto& c : kCases) {
    EXPECT_EQ(InSlices(c.answer, [](size_t) { return false; }), c.outcome) << c.answer;
    EXPECT_EQ(InSlices(c.answer, [](size_t) { return true; }), c.outcome) << c.answer;
    for (size_t one = 1; one < c.answer.size(); ++one) {
      for (size_t two = one; two < c.answer.size(); ++two) {
        ASSERT_EQ(InSlices(c.answer, [=](size_t at) { return at == one || at == two; }), c.outcome)
            << c.answer << one << " " << two;
      }
    }
  }
}

TEST(HttpResponseTest, LongAnswersInRandomSlices) {
  std::mt19937 random(1);
  std::string body, chunks = kChunked;
  for (int chunk = 0; chunk < 200; ++chunk) {
    const std::string data(random() % 900 + 1, static_cast<char>('a' + chunk % 26));
    body += data;
    chunks += TmyString::FromHex(data.size()).Chars() + ("\r\n" + data) + "\r\n";
  }
  const std::string header = "A\r\nContent-Length: 1\r\nX: ";
  const std::string full = header + std::string(HttpResponse::kHeaderLimit - header.size() - 4, 'x') + "\r\n\r\ny";
  const std::string pairs[][2] = {{chunks + "0\r\n", "done 3 " + body + " 0"},
                                  {full, "done 4 y 0"},
                                  {"A: long\r\n" + full, "failed 0  0"},
                                  {kChunked + std::string(HttpResponse::kHeaderLimit + 1, ' '), "failed 3  0"}};
  for (const auto& [answer, outcome] : pairs) {
    for (const uint32_t length : {1u, 7u, 1460u, 70000u}) {
      EXPECT_EQ(InSlices(answer, [&](size_t) { return random() % length == 0; }), outcome) << length;
    }
  }
}

}  // namespace
