#include "scheduler/MciWave.h"

#include "foundation/FloatMode.h"
#include "foundation/Trace.h"

namespace {

constexpr uint32_t kLongestName = 127;  // that every driver takes

// The name by which a file with a long one can be opened, too; empty where the volume has none.
TmyString ShortName(const TmyString& file) {
  char name[MAX_PATH] = "";
  const DWORD length = GetShortPathNameA(file.Chars(), name, sizeof name);
  return length < sizeof name ? TmyString(name, length) : TmyString();
}

}  // namespace

bool MciWave::Open(const TmyString& file) {
  Close();
  const TmyString brief = file.Length() > kLongestName ? ShortName(file) : TmyString();
  MCIERROR error = brief.IsEmpty() ? MCIERR_INVALID_FILE : OpenElement(brief.Chars());
  if (error != 0) error = OpenElement(file.Chars());
  if (error != 0) {
    Trace::Line("Playback not opened, err=%lu", error);
    return false;
  }
  MCI_SET_PARMS set = {};
  set.dwTimeFormat = MCI_FORMAT_MILLISECONDS;
  if (Send(MCI_SET, MCI_SET_TIME_FORMAT | MCI_WAIT, &set)) return true;
  Close();  // its positions would be in some other unit
  return false;
}

MCIERROR MciWave::OpenElement(const char* name) noexcept {
  const KeptFloatMode kept;
  MCI_OPEN_PARMSA open = {};
  open.lpstrDeviceType = "waveaudio";
  open.lpstrElementName = name;
  const MCIERROR error =
      mciSendCommandA(0, MCI_OPEN, MCI_OPEN_TYPE | MCI_OPEN_ELEMENT, reinterpret_cast<DWORD_PTR>(&open));
  if (error == 0) id_ = open.wDeviceID;
  return error;
}

void MciWave::Close() noexcept {
  if (!IsOpen()) return;
  Send(MCI_CLOSE, MCI_WAIT);
  id_ = 0;
}

bool MciWave::Play() noexcept {
  MCI_PLAY_PARMS play = {};
  return Send(MCI_PLAY, 0, &play);
}

bool MciWave::Pause() noexcept {
  return Send(MCI_PAUSE, MCI_WAIT);
}

bool MciWave::Resume() noexcept {
  return Send(MCI_RESUME, 0);
}

void MciWave::Stop() noexcept {
  Send(MCI_STOP, MCI_WAIT);
}

bool MciWave::Seek(uint32_t position) noexcept {
  MCI_SEEK_PARMS seek = {};
  seek.dwTo = position;
  return Send(MCI_SEEK, MCI_TO | MCI_WAIT, &seek);
}

std::optional<uint32_t> MciWave::Position() const noexcept {
  return Status(MCI_STATUS_POSITION);
}

std::optional<uint32_t> MciWave::Length() const noexcept {
  return Status(MCI_STATUS_LENGTH);
}

bool MciWave::IsStopped() const noexcept {
  return Status(MCI_STATUS_MODE) == uint32_t{MCI_MODE_STOP};
}

// Most drivers want a parameter block with every command, if only an empty one.
bool MciWave::Send(UINT command, DWORD_PTR flags, void* parameters) const noexcept {
  if (!IsOpen()) return false;
  const KeptFloatMode kept;
  MCI_GENERIC_PARMS none = {};
  const MCIERROR error =
      mciSendCommandA(id_, command, flags, reinterpret_cast<DWORD_PTR>(parameters ? parameters : &none));
  if (error != 0) Trace::Line("Playback command %x failed, err=%lu", command, error);
  return error == 0;
}

std::optional<uint32_t> MciWave::Status(DWORD item) const noexcept {
  MCI_STATUS_PARMS status = {};
  status.dwItem = item;
  if (!Send(MCI_STATUS, MCI_STATUS_ITEM | MCI_WAIT, &status)) return std::nullopt;
  return static_cast<uint32_t>(status.dwReturn);
}
