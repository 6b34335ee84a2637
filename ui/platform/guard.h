// The wrapper that every slot, event override and menu action goes through: an exception that
// reached the event loop would end the process.
#pragma once

#include <exception>
#include <functional>
#include <string>

#include "core/desktop.h"

namespace orvane {

// Shows an error's description in a plain message box when the event that is under way is over.
void ShowErrorLater(const std::exception& error);

// Shows a text in a plain message box when the event that is under way is over; nothing without
// one.
void ShowLater(const std::string& text);

// Runs the action; an error shows its description, and the state stays as the action left it.
template <class Action>
void Guard(Action&& action) {
  Tell(std::ref(action));
}

// The same for an action in the middle of a change of focus, which a message box would disturb: the
// box comes behind it.
template <class Action>
void GuardFocusChange(Action&& action) {
  try {
    action();
  } catch (const std::exception& error) {
    ShowErrorLater(error);
  }
}

}  // namespace orvane
