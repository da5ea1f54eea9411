// Marlux 3. The members of an archive, whole and in memory: a zip, a file compressed by gzip, or a tar inside gzip.
//
//   zlib::CGZip archive;
//   if (!archive.Open(path)) return archive.GetError();
//   for (int32_t i = 0; i < archive.GetCount(); ++i) archive.GetFile(i, &data, &size, &isFile, name, sizeof name);
//
// A file of any other sort counts as the second kind. The archive may be hostile: whatever its headers claim, nothing
// is read outside its bytes and nothing inflated beyond CZipper::kMostBytes.
#pragma once

#include "schedule/CZipper.h"

namespace zlib {

class CGZip : public CZipper {
 public:
  enum Kind : int32_t { kNotOpen = 0, kZip = 1, kGZip = 2, kTar = 3 };

  CGZip() noexcept = default;
  ~CGZip() override = default;

  // Closes what was open before. False with the error text set when the file is none of the three kinds. May throw
  // std::bad_alloc while it inflates a gzip.
  [[nodiscard]] bool Open(const char* path);
  bool Close() override;
  [[nodiscard]] bool IsOpen() const override { return kind_ != kNotOpen; }
  [[nodiscard]] int32_t GetKind() const noexcept { return kind_; }

  // Members, folders among them; -1 with the error text set on failure.
  [[nodiscard]] int32_t GetCount();
  // The member at an index, counted in the order of the archive's directory: its bytes with a zero behind them, their
  // number, whether it is an ordinary file, and its name, cut to `nameSize` - 1 characters. What is not wanted may be
  // null; without `data` nothing is unzipped. The bytes are the archive's until the next GetFile or Close. False with
  // the error text set on failure; the results are then as they were. Walking up from index 0 is the fast order.
  [[nodiscard]] bool GetFile(int32_t index, const char** data, uint32_t* size, bool* isFile, char* name,
                             uint32_t nameSize);
  // The text of the last failure, "" before the first.
  [[nodiscard]] const char* GetError() const noexcept { return error_; }

 private:
  struct Results;
  struct CloseZip {
    void operator()(void* zip) const noexcept;
  };
  static constexpr uint32_t kNowhere = 0xFFFFFFFF;

  bool Fail(const char* text) noexcept;  // always false
  [[nodiscard]] bool GoToZipEntry(uint32_t index);
  [[nodiscard]] bool GoToTarHeader(uint32_t index) noexcept;
  [[nodiscard]] bool GetZipFile(int32_t index, const Results& results);
  [[nodiscard]] bool GetTarFile(int32_t index, const Results& results);
  [[nodiscard]] int32_t GetZipCount();
  [[nodiscard]] int32_t GetTarCount() const noexcept;

  std::unique_ptr<void, CloseZip> zip_;  // null unless the archive is a zip
  std::unique_ptr<char[]> stream_;       // all of a gzip or tar, inflated
  uint32_t streamSize_ = 0;
  std::unique_ptr<char[]> member_;  // handed out last
  char error_[80] = {};
  int32_t kind_ = kNotOpen;
  uint32_t at_ = kNowhere;           // the member that the zip handle or the tar position stands on
  uint64_t tarPosition_ = 0;         // of that member's header
  uint32_t missingFrom_ = kNowhere;  // the first index that the zip directory is known not to have
  uint32_t zipLength_ = 0;           // on disk
};

}  // namespace zlib
