#include "download/HttpResponse.h"
#include "fuzz/Fuzz.h"

namespace {

struct Outcome {
  TmyBuffer body{0, 5000};
  HttpResponse response{body};

  bool operator==(const Outcome& other) const {
    return response.IsDone() == other.response.IsDone() && response.IsFailed() == other.response.IsFailed() &&
           (response.IsFailed() ||
            (body.Size() == other.body.Size() && response.StillExpected() == other.response.StillExpected() &&
             std::equal(body.Data(), body.Data() + body.Size(), other.body.Data())));
  }
};

}  // namespace

// However an answer is cut, it is the same answer.
void Try(Input& input) {
  uint32_t random = input.Take<uint16_t>();
  const std::string_view answer = input.Rest();
  Outcome whole;
  REQUIRE(whole.response.Feed(answer) <= answer.size());
  for (int round = 0; round < 8; ++round) {
    Outcome sliced;
    std::string waiting;
    for (size_t at = 0; at < answer.size();) {
      random = random * 1664525 + 1013904223;
      const size_t slice = 1 + (random >> 24) % (random & 0x10000 ? 3 : 60);
      waiting += answer.substr(at, slice);
      at += slice;
      const std::vector<char> block(waiting.begin(), waiting.end());
      waiting.erase(0, sliced.response.Feed({block.data(), block.size()}));
    }
    REQUIRE(whole == sliced);
  }
}
