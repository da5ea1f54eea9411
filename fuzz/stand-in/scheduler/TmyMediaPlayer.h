// Marlux 3. The recording side of the media panel without its window, for the native build of what feeds it.
#pragma once

#include <memory>

#include "foundation/FrameFlag.h"
#include "scheduler/TmyWaveFilePCM.h"
#include "toolkit/TmyEvent.h"

class TmyMediaPlayer {
 public:
  enum State : int32_t { kIdle = 0, kRecording = 3 };

  int32_t StartRecording(const TmyString& fileName, uint32_t sampleRate, uint32_t channels, uint32_t bits) {
    fileName_ = fileName;
    file_ = std::make_unique<TmyWaveFilePCM>(fileName, sampleRate, channels, bits, 0x1000);
    return 1;
  }
  int32_t StopRecording() {
    file_.reset();
    return 1;
  }
  int32_t Write(const void* data, uint32_t length) { return file_ && file_->Write(data, length); }
  FrameFlag& FileChange() { return fileChange_; }
  void KeepFocus() {}
  [[nodiscard]] bool IsAlive() const { return true; }
  [[nodiscard]] int32_t StateCode() const { return file_ ? kRecording : kIdle; }
  [[nodiscard]] TmyWaveFilePCM* File() const { return file_.get(); }
  [[nodiscard]] const TmyString& FileName() const { return fileName_; }

 private:
  std::unique_ptr<TmyWaveFilePCM> file_;
  TmyString fileName_;
  FrameFlag fileChange_;
};
