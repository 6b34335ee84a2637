// What readers of the screen are told of a list: its value is what the closed box shows, typed
// letters included.
#pragma once

#include <QString>

namespace orvane {

// What a list tells of itself; it is a QComboBox.
class ListForReaders {
 public:
  virtual ~ListForReaders() = default;
  virtual QString ShownText() const = 0;
  virtual bool IsOpen() const = 0;
};

// For all lists of the program; done once, further calls do nothing.
void TellListsToReaders();

}  // namespace orvane
