#include "schedule/CGZip.h"

#include <unzip.h>

#include <algorithm>
#include <new>

#include "foundation/TmyString.h"
#include "schedule/TarHeader.h"
#include "schedule/ZipMember.h"

namespace {

constexpr char kUnknownType[] = "Could not determine archive type !";
constexpr char kNoGzipData[] = "Could not read data from gzip archive !";
constexpr char kNotOpened[] = "Archive not opened";
constexpr char kNoFiles[] = "Could not get files from the archive !";
constexpr char kNoFileAtPosition[] = "Could not get file at the specified position from the archive !";
constexpr char kNotUnzipped[] = "Could not unzip file at the specified position from the archive !";
constexpr char kInvalidPosition[] = "Invalid file position !";

constexpr uint32_t kZipEntryBytes = 46;  // the least that a directory spends on one

}  // namespace

namespace zlib {

// Where the caller of GetFile wants to have what; each may be null.
struct CGZip::Results {
  const char** data;
  uint32_t* size;
  bool* isFile;
  char* name;
  uint32_t nameSize;

  void Set(const char* bytes, uint32_t count, bool ordinary) const noexcept {
    if (data) *data = bytes;
    if (size) *size = count;
    if (isFile) *isFile = ordinary;
  }
  void SetName(std::string_view text) const noexcept {
    if (!name || nameSize == 0) return;
    name[text.copy(name, nameSize - 1)] = 0;
  }
};

void CGZip::CloseZip::operator()(void* zip) const noexcept {
  unzClose(zip);
}

bool CGZip::Fail(const char* text) noexcept {
  CopyText(error_, text);
  return false;
}

bool CGZip::Open(const char* path) {
  CGZip::Close();
  zip_.reset(unzOpen64(path));
  if (zip_) {
    kind_ = kZip;
    zipLength_ = static_cast<uint32_t>(LengthOf(path));  // one that is not known counts as large
    return true;
  }
  if (!CZipper::Open(path, kRead)) return Fail(kUnknownType);
  if (!ReadAll(stream_, streamSize_)) {
    CGZip::Close();
    return Fail(kNoGzipData);
  }
  kind_ = TarHeader::At({stream_.get(), streamSize_}, 0) ? kTar : kGZip;
  return true;
}

bool CGZip::Close() {
  member_.reset();
  stream_.reset();
  streamSize_ = 0;
  zip_.reset();
  at_ = missingFrom_ = kNowhere;
  kind_ = kNotOpen;
  return CZipper::Close();
}

int32_t CGZip::GetCount() {
  switch (kind_) {
    case kZip:
      return GetZipCount();
    case kGZip:
      return 1;
    case kTar:
      return GetTarCount();
    default:
      Fail(kNotOpened);
      return -1;
  }
}

// A count that the file has no room for is a lie, and callers would walk up to it.
int32_t CGZip::GetZipCount() {
  unz_global_info64 info{};
  if (unzGetGlobalInfo64(zip_.get(), &info) == UNZ_OK && info.number_entry <= zipLength_ / kZipEntryBytes) {
    return static_cast<int32_t>(info.number_entry);
  }
  Fail(kNoFiles);
  return -1;
}

int32_t CGZip::GetTarCount() const noexcept {
  int32_t count = 0;
  uint64_t position = 0;
  while (const auto header = TarHeader::At({stream_.get(), streamSize_}, position)) {
    position = header->next;
    ++count;
  }
  return count;
}

// NOLINTNEXTLINE(readability-non-const-parameter): written through the results
bool CGZip::GetFile(int32_t index, const char** data, uint32_t* size, bool* isFile, char* name, uint32_t nameSize) {
  const Results results{data, size, isFile, name, nameSize};
  switch (kind_) {
    case kZip:
      return GetZipFile(index, results);
    case kGZip:
      results.Set(stream_.get(), streamSize_, true);
      results.SetName("unknown");
      return true;
    case kTar:
      return GetTarFile(index, results);
    default:
      return Fail(kNotOpened);
  }
}

// minizip can only step to the next entry and go back to the first one.
bool CGZip::GoToZipEntry(uint32_t index) {
  if (index >= missingFrom_) return false;
  if (at_ == kNowhere || at_ > index) at_ = unzGoToFirstFile(zip_.get()) == UNZ_OK ? 0 : kNowhere;
  if (at_ == kNowhere) {
    missingFrom_ = 0;
    return false;
  }
  for (; at_ < index; ++at_) {
    if (unzGoToNextFile(zip_.get()) == UNZ_OK) continue;
    missingFrom_ = at_ + 1;
    at_ = kNowhere;
    return false;
  }
  return true;
}

bool CGZip::GetZipFile(int32_t index, const Results& results) {
  ZipEntry entry;
  if (index < 0 || !GoToZipEntry(static_cast<uint32_t>(index)) || !ReadZipEntry(zip_.get(), entry, nullptr, 0)) {
    return Fail(kNoFileAtPosition);
  }
  member_.reset();
  if (results.data) {
    member_ = UnzipMember(zip_.get(), entry, kMostBytes);
    if (!member_) return Fail(kNotUnzipped);
  }
  if (results.name && !ReadZipEntry(zip_.get(), entry, results.name, results.nameSize)) return Fail(kNoFileAtPosition);
  results.Set(member_.get(), static_cast<uint32_t>(std::min<uint64_t>(entry.size, UINT32_MAX)), entry.isFile);
  return true;
}

// Goes on from the member asked for last: to begin anew each time would take hours for an archive of empty members.
bool CGZip::GoToTarHeader(uint32_t index) noexcept {
  const std::string_view stream(stream_.get(), streamSize_);
  if (at_ == kNowhere || at_ > index) at_ = 0, tarPosition_ = 0;
  auto header = TarHeader::At(stream, tarPosition_);
  for (; header && at_ < index; ++at_) {
    tarPosition_ = header->next;
    header = TarHeader::At(stream, tarPosition_);
  }
  return header.has_value();
}

// In the stream the next header follows the data, not a zero: hence a copy.
bool CGZip::GetTarFile(int32_t index, const Results& results) {
  if (index < 0 || !GoToTarHeader(static_cast<uint32_t>(index))) return Fail(kInvalidPosition);
  const std::string_view stream(stream_.get(), streamSize_);
  const auto header = TarHeader::At(stream, tarPosition_);
  member_.reset();
  const uint64_t begin = tarPosition_ + TarHeader::kBytes;
  if (begin > streamSize_ || header->size > streamSize_ - begin) return Fail(kNoGzipData);
  const auto size = static_cast<uint32_t>(header->size);
  if (results.data) {
    member_.reset(new (std::nothrow) char[size + 1]);
    if (!member_) return Fail(kNoGzipData);
    stream.copy(member_.get(), size, static_cast<size_t>(begin));
    member_[size] = 0;
  }
  results.Set(member_.get(), size, header->isFile);
  results.SetName(header->name);
  return true;
}

}  // namespace zlib
