// Marlux 3. One gzip file, open for reading or for writing.
//
//   zlib::CZipper file;
//   if (file.Open("notes.gz", zlib::CZipper::kWrite)) file.WriteString("hello");
//
// Reading passes data through that are not compressed at all. Calls that do not fit the mode do nothing and return
// false or 0.
#pragma once

#include <memory>

#include "foundation/Compiler.h"

struct gzFile_s;  // zlib's

namespace zlib {

class CZipper {
 public:
  enum Mode : int32_t { kClosed = 0, kWrite = 1, kRead = 2 };
  // No stream and no member is inflated further: a few hundred bytes can claim to hold more than the address space.
  static constexpr uint32_t kMostBytes = 256U << 20;

  CZipper() noexcept = default;
  virtual ~CZipper() = default;  // closes the file
  CZipper(const CZipper&) = delete;
  CZipper& operator=(const CZipper&) = delete;

  // Closes what was open before. False when the file cannot be opened, the mode is neither kWrite nor kRead, or a file
  // to be read has 2 GiB or more.
  [[nodiscard]] bool Open(const char* path, int32_t mode);
  // False when a writer's last bytes did not get to the disk.
  virtual bool Close();
  [[nodiscard]] virtual bool IsOpen() const;
  virtual bool Write(const void* data, uint32_t n);  // true only when all bytes were taken
  virtual bool WriteString(const char* text);        // without its zero; null is the empty text
  virtual uint32_t Read(void* buffer, uint32_t n);   // bytes read, 0 at the end and on errors
  // The rest of the stream, inflated, with a zero behind its `size` bytes. False for nothing, damaged data, more than
  // kMostBytes or a lack of memory. Of a file that was cut off this gives what there is. May throw std::bad_alloc.
  [[nodiscard]] virtual bool ReadAll(std::unique_ptr<char[]>& data, uint32_t& size);
  virtual bool SetParams(int32_t level, int32_t strategy);  // zlib's, for what is written from now on

 protected:
  // Bytes on disk; -1 when the file cannot be read or its length does not fit.
  [[nodiscard]] static int32_t LengthOf(const char* path) noexcept;

 private:
  struct CloseGzip {
    void operator()(gzFile_s* file) const noexcept;
  };

  int32_t mode_ = kClosed;
  int32_t level_ = 0;  // both set by Open
  int32_t strategy_ = 0;
  std::unique_ptr<gzFile_s, CloseGzip> file_;
  uint32_t length_ = 0;  // on disk, of a file being read
};

static_assert(sizeof(void*) != 4 || sizeof(CZipper) == 24);

}  // namespace zlib
