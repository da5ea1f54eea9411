// Marlux 3. One open "waveaudio" device of the system's media control interface, playing one WAV file. Positions and
// lengths in milliseconds.
//
//   MciWave device;
//   if (device.Open("C:\\x.wav")) device.Play();
//   ... device.Position() ...      // until it is device.Length()
//
// Functions that return false or nothing failed; the device stays open then, as it was.
#pragma once

#include <windows.h>

#include <mmsystem.h>

#include <optional>

#include "foundation/TmyString.h"

class MciWave {
 public:
  MciWave() noexcept = default;
  ~MciWave() { Close(); }
  MciWave(const MciWave&) = delete;
  MciWave& operator=(const MciWave&) = delete;

  bool Open(const TmyString& file);  // closes what was open; false leaves it closed
  void Close() noexcept;             // stops too; returns when the file is free again
  [[nodiscard]] bool IsOpen() const noexcept { return id_ != 0; }

  bool Play() noexcept;  // from the present position to the end; returns at once
  bool Pause() noexcept;
  bool Resume() noexcept;
  void Stop() noexcept;
  bool Seek(uint32_t position) noexcept;
  [[nodiscard]] std::optional<uint32_t> Position() const noexcept;
  [[nodiscard]] std::optional<uint32_t> Length() const noexcept;
  // Not while it plays or is paused. For a moment after Play it may still be true.
  [[nodiscard]] bool IsStopped() const noexcept;

 private:
  MCIERROR OpenElement(const char* name) noexcept;
  bool Send(UINT command, DWORD_PTR flags, void* parameters = nullptr) const noexcept;
  [[nodiscard]] std::optional<uint32_t> Status(DWORD item) const noexcept;

  MCIDEVICEID id_ = 0;  // 0: none
};
