// Marlux 3. One run of bringing both databases up to date, without window and without socket: what is asked for, what
// is saved, what is said. First the EiBi file, then each HFCC archive that the index page lists and the folder lacks.
//
//   DownloadRun run(desk, dataFolder);
//   run.Start();                          // asks desk for the first document
//   run.Connected(); run.Finished(...);   // what became of it, told by the desk
//
// A file is replaced when the new one is whole. An EiBi document without one broadcast replaces the schedule, too,
// which is kept beside it as "eibi.bak"; when it cannot be kept the schedule stays and the document is dropped, as one
// that the disk did not take. So does what cannot be read at that moment. An archive whose name is the short one of
// another file is not saved.
//
// One document at a time. Each function may ask the desk for the next one or end the run, as the last thing it does.
#pragma once

#include "download/DownloadDesk.h"
#include "foundation/TmyStringList.h"

// A document that arrived, as bytes of the socket's.
struct DownloadedDocument {
  const TmyString& statusLine;
  const uint8_t* body;
  uint32_t length;
};

class DownloadRun {
 public:
  DownloadRun(DownloadDesk& desk, const TmyString& folder);

  void Start();
  // What became of the last request.
  void Connected();
  void Progress(uint32_t received, uint32_t stillExpected, bool isWholeKnown);
  void Finished(const DownloadedDocument& document);
  void RequestFailed();  // for want of memory
  void TimedOut();
  void Closed();

  [[nodiscard]] bool HasEibi() const noexcept { return hasEibi_ && isSchedule_; }  // a new schedule, no error page
  [[nodiscard]] uint32_t ArchiveCount() const noexcept { return downloadedFiles_.Count(); }  // new ones

 private:
  void StartHfcc();
  void RequestHfcc(const TmyString& path);
  void RequestFirstPending();
  void EibiFinished(const DownloadedDocument& document);
  void IndexFinished(const DownloadedDocument& document);
  void ArchiveFinished(const DownloadedDocument& document);
  [[nodiscard]] bool Save(const TmyString& name, const DownloadedDocument& document) const;
  [[nodiscard]] bool KeepFormerEibi() const;
  void ShowSummary();
  void End();
  void Say(const TmyString& line1, const TmyString& line2);
  void SayBelow(const TmyString& line2) { Say(line1_, line2); }

  DownloadDesk& desk_;
  TmyString folder_;
  DownloadSite site_ = DownloadSite::kEibi;
  TmyString line1_;
  TmyStringList pendingFiles_;     // names still to fetch, in the page's order
  TmyStringList downloadedFiles_;  // names fetched
  TmyStringList knownFiles_;       // base names of the files that the folder had
  uint32_t lostTexts_ = 0;         // as the run began
  bool isSchedule_ = false;        // the EiBi document that came, and not an error page
  bool hasEibi_ = false;
  bool reachedHfcc_ = false;
};
