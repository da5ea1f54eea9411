#include "app/MainRecorder.h"

#include <algorithm>

namespace {

// A record without a readable frequency is nothing to tune to.
bool HasFrequency(const TuneTarget& target) noexcept {
  return static_cast<int32_t>(target.frequencyHz) > 0;
}

}  // namespace

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
  if (!HasFrequency(target) || session_.IsRecording()) return;
  if (session_.CurrentTask()) session_.Stop();
  if (IsAlive()) Tune(target.frequencyHz, target.mode);
}

void MainRecorder::RecordStation(const TuneTarget& target) {
  if (!HasFrequency(target)) return;
  feed_.EndRecording();
  session_.Start(RecordingSession::kFromGrid, target.frequencyHz, target.mode, nullptr);
}

void MainRecorder::FrequencyChanged() {
  if (!session_.IsRecording()) return;
  feed_.EndRecording();
  session_.FrequencyChanged();
}

void MainRecorder::Stop() {
  feed_.EndRecording();
  session_.Stop();
}

void MainRecorder::End() {
  const bool played = media_.StateCode() == TmyMediaPlayer::kPlaying;
  media_.stateChanged.Unbind();
  media_.parametersWanted.Unbind();
  media_.StopRecording();
  media_.StopPlayback();
  if (played) link_.TellMediaState(false);
}

int MainRecorder::LayOut(int clientWidth, int clientHeight) {
  const bool hasOwnRow = status_.HasNote();  // a note needs the whole width
  const int statusWidth = hasOwnRow ? clientWidth : std::min(clientWidth, status_.PreferredWidth());
  const int mediaWidth = hasOwnRow ? clientWidth : clientWidth - statusWidth;
  const int mediaHeight = media_.PreferredHeight(mediaWidth);
  const int statusHeight = hasOwnRow ? status_.PreferredHeight() : std::max(mediaHeight, status_.PreferredHeight());
  const int height = hasOwnRow ? mediaHeight + statusHeight : statusHeight;
  media_.SetBounds(0, clientHeight - height, mediaWidth, hasOwnRow ? mediaHeight : height);
  status_.SetBounds(clientWidth - statusWidth, clientHeight - statusHeight, statusWidth, statusHeight);
  return height;
}

// The host may run a loop of its own inside, a box say: a click that tunes must not keep the mouse from it.
bool MainRecorder::Tune(uint32_t frequencyHz, uint32_t mode) {
  ReleaseCapture();
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
