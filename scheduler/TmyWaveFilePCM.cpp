#include "scheduler/TmyWaveFilePCM.h"

#include <algorithm>
#include <cstring>

#include "foundation/HeldFile.h"

namespace {

constexpr uint32_t kFirstBlock = 4096;  // bytes that a new recording has at least
constexpr DWORD kFirstBlockMs = 1000;
constexpr DWORD kPatchMs = 10000;

}  // namespace

TmyWaveFilePCM::TmyWaveFilePCM(const TmyString& name, uint32_t sampleRate, uint32_t channels, uint32_t bits,
                               uint32_t bufferSize)
    : TmyFileDirect(name, false, true, bufferSize), header_(MakeWaveHeader(sampleRate, channels, bits)) {
  if (IsOpen() && !(WriteFirstBlock() && AppendHeader())) Close();
}

bool TmyWaveFilePCM::WriteFirstBlock() {
  const uint32_t length = (kFirstBlock + BlockSize() - 1) / BlockSize() * BlockSize();
  const Pages block = MakePages(length);
  if (!block) return false;
  std::memcpy(block.get(), &header_, sizeof header_);
  const int32_t written = StartWrite(0, block.get(), length) ? WaitForTransfer(kFirstBlockMs) : 0;
  if (!Hangs()) return written == static_cast<int32_t>(length);
  TryAgain();  // a drive that wakes: the header goes the way of the samples, too, and may take as long as those
  return true;
}

// The header goes the way of the samples, so that they begin behind it. Blocks have more bytes than it has.
bool TmyWaveFilePCM::AppendHeader() {
  return Append(sizeof header_, &header_) == Appended::kInTail;
}

TmyWaveFilePCM::~TmyWaveFilePCM() {
  if (!IsOpen()) return;
  TryAgain();  // without the sizes in its header players find no sound in it
  SetWaveDataSize(header_, DataSize());
  const bool patched = PatchHeader();
  const Closed closed = CloseDirect();
  const uint64_t base = AlignedBase();
  const bool whole = closed == Closed::kWhole;
  if (Hangs() || (!patched && closed == Closed::kNotReopened)) return;  // what it is on has gone
  if (!whole) SetWaveDataSize(header_, base == 0 ? 0 : static_cast<uint32_t>(base - sizeof header_));
  if (!whole || (!patched && base != 0)) RewriteHeader();
}

bool TmyWaveFilePCM::Write(const void* samples, uint32_t length) {
  if (!IsOpen() || (lastWriteFailed_ && !CompleteFrame()) || length > kLargestData - DataSize()) return false;
  lastWriteFailed_ = !TmyFileDirect::Write(samples, length);
  return !lastWriteFailed_;
}

uint32_t TmyWaveFilePCM::FillerSize() const {
  const uint32_t frame = std::max<uint32_t>(header_.blockAlign, 1);
  return lastWriteFailed_ ? (frame - DataSize() % frame) % frame : 0;
}

// A write that failed may have ended inside a frame: silence fills it up.
bool TmyWaveFilePCM::CompleteFrame() {
  static constexpr uint8_t kSilence[512] = {};
  uint32_t missing = FillerSize();
  if (missing > kLargestData - DataSize()) return false;
  while (missing != 0) {
    const uint32_t piece = std::min<uint32_t>(missing, sizeof kSilence);
    if (!TmyFileDirect::Write(kSilence, piece)) return false;
    missing -= piece;
  }
  return true;
}

void TmyWaveFilePCM::SetFormat(uint32_t sampleRate, uint32_t channels, uint32_t bits) noexcept {
  SetWaveFormat(header_, sampleRate, channels, bits);
}

uint32_t TmyWaveFilePCM::DataSize() const {
  return IsOpen() ? static_cast<uint32_t>(Position() - sizeof header_) : 0;
}

// The tail follows this when the file is closed. A file without a whole block thus gets its first header back.
bool TmyWaveFilePCM::PatchHeader() {
  const auto block = static_cast<int32_t>(BlockSize());
  if (!StartRead(0, Staging(), BlockSize()) || WaitForTransfer(kPatchMs) != block) return false;
  std::memcpy(Staging(), &header_, sizeof header_);
  return StartWrite(0, Staging(), BlockSize()) && WaitForTransfer(kPatchMs) == block;
}

// The way out when the file could not be ended as usual.
void TmyWaveFilePCM::RewriteHeader() {
  const auto opens = [this] { return Open(GENERIC_WRITE, OPEN_EXISTING, FILE_SHARE_READ, FILE_ATTRIBUTE_NORMAL); };
  if (HeldFile::TryFor(opens)) TmyFile::Write(&header_, sizeof header_);
  Close();
}
