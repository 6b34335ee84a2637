// What the sheet's place says until a job is begun or opened: what can be done first, each a button
// beside its key.
#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QToolButton>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "ui/commands.h"

namespace orvane {

// Lies over the whole of its parent, and scrolls where that is too small for it.
class StartPage : public QWidget {
 public:
  // `run` does a command as a menu entry does, with the number of a recent file, and `openSample`
  // opens a copy of the job of that path.
  StartPage(std::function<void(Command, int)> run,
            std::function<void(const std::string&)> openSample, QWidget* parent);

  // Names the recent jobs anew.
  void ShowRecent();
  // The first button, which takes the cursor.
  QWidget* Stop() const { return first_; }

 private:
  QToolButton* AddEntry(QGridLayout& lines, const QString& name, const QString& caption,
                        const QString& key, std::string_view icon);
  void AddSamples(QGridLayout& lines);

  std::function<void(Command, int)> run_;
  std::function<void(const std::string&)> openSample_;
  QToolButton* first_ = nullptr;
  QWidget* recent_ = nullptr;  // heading and list
  QGridLayout* recentLines_ = nullptr;
};

}  // namespace orvane
