#include "app/MainRecorder.h"

#include <algorithm>

MainRecorder::MainRecorder(TmyComponent& window, HostLink& link, StatusBar& status, const bool& utc)
    : window_(window),
      link_(link),
      status_(status),
      utc_(utc),
      media_(*new TmyMediaPlayer(window)),
      feed_(media_),
      session_(*this) {
  media_.parametersWanted.Bind<&MainRecorder::NameRecording>(this);
  media_.stateChanged.Bind<&MainRecorder::StateChanged>(this);
  feed_.fileFull.Bind<&MainRecorder::FileFull>(this);
  feed_.fileFailed.Bind<&MainRecorder::FileFailed>(this);
  feed_.fileChanged.Bind<&MainRecorder::Follow>(this);
  media_.Show(true);
}

// A running recording is not disturbed. One that the user has stopped by hand gives its task up here.
void MainRecorder::TuneStation(const TuneTarget& target) {
  const auto isBusy = [this] { return session_.IsRecording() || session_.IsTuning(); };
  if (!target.HasFrequency() || isBusy()) return;
  if (session_.CurrentTask()) session_.Stop();  // the host runs inside: the scheduler may begin a recording there
  if (IsAlive() && !isBusy()) Tune(target.frequencyHz, target.mode);
}

void MainRecorder::RecordStation(const TuneTarget& target) {
  if (!target.HasFrequency()) return;
  feed_.EndRecording();
  session_.Start(RecordingSession::kFromGrid, target.frequencyHz, target.mode, nullptr);
}

// Once, not for good: that belongs to the thread, and so to the host.
void MainRecorder::KeepAwake() const noexcept {
  if (media_.StateCode() == TmyMediaPlayer::kRecording) SetThreadExecutionState(ES_SYSTEM_REQUIRED);
}

void MainRecorder::StopMedia() {
  feed_.EndRecording();
  media_.StopRecording();
}

void MainRecorder::End() {
  const bool played = media_.StateCode() == TmyMediaPlayer::kPlaying;
  media_.stateChanged.Unbind();
  media_.parametersWanted.Unbind();
  media_.StopRecording();
  media_.StopPlayback();
  if (played) link_.TellMediaState(false);
}

// A note needs the whole width, below the panel.
int MainRecorder::MediaWidth(int width) const {
  return status_.HasNote() ? width : width - std::min(width, status_.PreferredWidth());
}

MainRecorder::Heights MainRecorder::HeightsFor(int width) const {
  const int media = MediaWidth(width), status = status_.PreferredHeight();
  const int least = media_.PreferredHeight(media), most = media_.TwoRowHeight();
  if (status_.HasNote()) return {least + status, most + status};
  return {std::max(least, status), std::max(most, status)};
}

void MainRecorder::LayOut(const RECT& strip) {
  const int width = strip.right - strip.left, height = strip.bottom - strip.top;
  const int media = MediaWidth(width);
  const int note = status_.HasNote() ? std::min(height, status_.PreferredHeight()) : 0;
  media_.SetBounds(strip.left, strip.top, media, height - note);
  if (note > 0) {
    status_.Place({strip.left, strip.bottom - note, strip.right, strip.bottom}, 1, note);
  } else {
    const RECT& time = media_.TimeBounds();
    status_.Place({strip.left + media, strip.top, strip.right, strip.bottom}, time.top, time.bottom);
  }
}

// The host may run a loop of its own inside, a box say: a click that tunes must not keep the mouse from it.
bool MainRecorder::Tune(uint32_t frequencyHz, uint32_t mode) {
  ReleaseCapture();
  if (session_.IsTuning()) status_.SetNote({});  // a recording begins: the note was about another one
  link_.Tune(frequencyHz, mode);
  return IsAlive();
}

void MainRecorder::NameRecording(RecordingParameters& parameters) {
  parameters = session_.ButtonParameters();
}

// A change of files is none of the session's affair: the recording goes on. The host is told of each change; that comes
// last, for it may close the plug-in.
void MainRecorder::StateChanged(TmyMediaPlayer& media) {
  if (!feed_.IsChangingFile()) Follow();
  link_.TellMediaState(media.StateCode() == TmyMediaPlayer::kPlaying);
}

// A note about a recording is there until something else begins.
void MainRecorder::Follow() {
  const int32_t state = media_.StateCode();
  session_.MediaStateChanged(state);
  if (state == TmyMediaPlayer::kIdle) {
    feed_.FreeMemory();
    hasEnded_ = true;
  } else if (hasEnded_) {
    hasEnded_ = false;
    status_.SetNote({});
  }
}

void MainRecorder::FileFull(const TmyString& next) {
  status_.SetNote(TmyString("4 GB reached: recording goes on in ") + next.FileName());
}

void MainRecorder::FileFailed(const TmyString& next) {
  status_.SetNote(TmyString("Recording ended: ") + next.FileName() + " cannot be made");
}
