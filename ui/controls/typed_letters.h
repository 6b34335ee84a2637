// The letters that a person types over a list of names, and what they choose. It knows no control
// and no clock: letters belong together however long the next one takes.
#pragma once

#include <QString>
#include <QStringList>

namespace orvane {

// Names are compared without regard to case and to their outer blanks.
class TypedLetters {
 public:
  // The names to choose from, in the order of the list. What was typed before is dropped.
  void SetNames(QStringList names);

  // Adds typed letters. False, and nothing added, for a blank in front, which begins no name.
  bool Type(const QString& typed);
  // Takes the last letter back; false without any.
  bool TakeBack();
  void Drop();

  const QString& Letters() const { return letters_; }
  bool Pending() const { return !letters_.isEmpty(); }

  // How many names begin with the letters, and the first of them, counted from 0; -1 for none and
  // without letters. The rest is what that name has behind the letters.
  int Count() const { return count_; }
  int First() const { return first_; }
  QString Rest() const;
  bool NothingFits() const { return Pending() && count_ == 0; }

  // What Enter, Tab and leaving choose: the only name left, or else the one that the letters are in
  // full; -1 while they leave it open, as another product than the one meant would be wrong steel.
  int Choice() const;
  // Why nothing can be chosen, for a person; empty when something can, and without letters.
  QString Reason() const;

 private:
  void Search();

  QStringList names_;
  QString letters_;
  int first_ = -1;
  int count_ = 0;
};

}  // namespace orvane
