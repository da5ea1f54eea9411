#include "schedule/CZipper.h"

#include <zlib.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>
#include <vector>

namespace {

// A piece is as large as the file on disk, within bounds: a tiny file that inflates to millions must not make millions
// of pieces.
constexpr uint32_t kSmallestPiece = 64U << 10;
constexpr uint32_t kLargestPiece = 16U << 20;

struct Piece {
  std::unique_ptr<char[]> bytes;
  uint32_t size = 0;
};

// All pieces in one block with a zero behind; null when memory is short.
std::unique_ptr<char[]> Join(const std::vector<Piece>& pieces, uint32_t total) {
  std::unique_ptr<char[]> joined(new (std::nothrow) char[total + 1]);
  if (!joined) return joined;
  char* to = joined.get();
  for (const Piece& piece : pieces) to = std::copy_n(piece.bytes.get(), piece.size, to);
  *to = 0;
  return joined;
}

}  // namespace

namespace zlib {

void CZipper::CloseGzip::operator()(gzFile_s* file) const noexcept {
  gzclose(file);
}

int32_t CZipper::LengthOf(const char* path) noexcept {
  struct CloseFile {
    void operator()(FILE* file) const noexcept { fclose(file); }
  };
  const std::unique_ptr<FILE, CloseFile> file(fopen(path, "rb"));
  if (!file || fseek(file.get(), 0, SEEK_END) != 0) return -1;
  static_assert(sizeof(long) == sizeof(int32_t));  // what ftell counts in; -1 when it fails
  return ftell(file.get());
}

bool CZipper::Open(const char* path, int32_t mode) {
  CZipper::Close();
  if (mode != kRead && mode != kWrite) return false;
  const int32_t length = mode == kRead ? LengthOf(path) : 0;
  if (length < 0) return false;
  file_.reset(gzopen(path, mode == kRead ? "rb" : "wb"));
  if (!file_) return false;
  mode_ = mode;
  length_ = static_cast<uint32_t>(length);
  level_ = Z_DEFAULT_COMPRESSION;
  strategy_ = Z_DEFAULT_STRATEGY;
  return true;
}

bool CZipper::Close() {
  mode_ = kClosed;
  length_ = 0;
  return !file_ || gzclose(file_.release()) == Z_OK;
}

bool CZipper::IsOpen() const {
  return mode_ != kClosed;
}

bool CZipper::Write(const void* data, uint32_t n) {
  if (mode_ != kWrite || n > INT32_MAX) return false;
  return gzwrite(file_.get(), data, n) == static_cast<int>(n);
}

bool CZipper::WriteString(const char* text) {
  return text ? Write(text, static_cast<uint32_t>(strlen(text))) : Write("", 0);
}

uint32_t CZipper::Read(void* buffer, uint32_t n) {
  if (mode_ != kRead) return 0;
  const int got = gzread(file_.get(), buffer, std::min<uint32_t>(n, INT32_MAX));
  return got > 0 ? static_cast<uint32_t>(got) : 0;
}

bool CZipper::ReadAll(std::unique_ptr<char[]>& data, uint32_t& size) {
  if (mode_ != kRead || length_ == 0) return false;
  const uint32_t room = std::clamp(length_, kSmallestPiece, kLargestPiece);
  std::vector<Piece> pieces;
  uint32_t total = 0;
  for (;;) {
    Piece piece{std::unique_ptr<char[]>(new (std::nothrow) char[room])};
    const int got = piece.bytes ? gzread(file_.get(), piece.bytes.get(), room) : -1;
    if (got == 0) break;
    if (got < 0 || static_cast<uint32_t>(got) > kMostBytes - total) return false;
    piece.size = static_cast<uint32_t>(got);
    total += piece.size;
    pieces.push_back(std::move(piece));
  }
  if (total == 0) return false;
  data = Join(pieces, total);
  size = data ? total : 0;
  return data != nullptr;
}

bool CZipper::SetParams(int32_t level, int32_t strategy) {
  if (mode_ != kWrite || gzsetparams(file_.get(), level, strategy) != Z_OK) return false;
  level_ = level;
  strategy_ = strategy;
  return true;
}

}  // namespace zlib
