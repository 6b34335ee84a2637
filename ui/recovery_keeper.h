// Keeps a copy of the job for recovery while it is worked on: at most five seconds after a step it
// stands in the user's data folder, written apart from the windows' thread. And knows which copies
// were left by programs that died: a program holds a lock on its own folder of copies for as long
// as it lives.
#pragma once

#include <QObject>
#include <QTimer>
#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "core/file_lock.h"
#include "project/recovery.h"

namespace orvane {

class RecoveryKeeper : public QObject {
 public:
  // `tell` shows a quiet line, where copies can't be written and when they can again.
  explicit RecoveryKeeper(std::function<void(const std::string& line)> tell,
                          QObject* parent = nullptr);
  // Leaves the copy as it stands, for a program that ends otherwise than by the user's consent.
  ~RecoveryKeeper() override;

  // The job may be changed, or as its file again, which needs no copy.
  void NoteChange();
  // Writes what isn't written yet, and waits for it. False if it failed.
  bool WriteNow();
  // The program ends by the user's consent: nothing is left.
  void End();

  // What other programs have left, the latest first. No other program is given them until they are
  // let go. Folders without a copy are removed.
  std::vector<LeftJob> TakeLeft();
  // Removes one of them, as it is brought back or discarded.
  void RemoveLeft(const LeftJob& job);
  void LetGo() { taken_.clear(); }

 private:
  // What the actions apart from the windows share.
  struct Copies;

  void Write();
  void Finish();
  void Drop();
  void Told(const std::string& error);

  const std::function<void(const std::string&)> tell_;
  const std::shared_ptr<Copies> copies_;
  std::map<std::string, std::shared_ptr<FileLock>> taken_;  // by the folder
  QTimer timer_{this};
  bool isWritten_ = false;  // a copy was handed over
  bool isWanted_ = false;   // another one, once the present one is written
  bool isTold_ = false;     // that it can't be written
};

}  // namespace orvane
