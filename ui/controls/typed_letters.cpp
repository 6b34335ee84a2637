#include "ui/controls/typed_letters.h"

#include <utility>

namespace orvane {

namespace {

constexpr QChar Blank = u' ';

// Blanks alone, as the catalogues' own texts are compared.
QString WithoutOuterBlanks(const QString& name) {
  qsizetype begin = 0;
  qsizetype end = name.size();
  while (begin < end && name.at(begin) == Blank) ++begin;
  while (end > begin && name.at(end - 1) == Blank) --end;
  return name.mid(begin, end - begin);
}

}  // namespace

void TypedLetters::SetNames(QStringList names) {
  names_ = std::move(names);
  for (QString& name : names_) name = WithoutOuterBlanks(name);
  Drop();
}

bool TypedLetters::Type(const QString& typed) {
  if (typed.isEmpty() || (letters_.isEmpty() && typed.front() == Blank)) return false;
  letters_ += typed;
  Search();
  return true;
}

bool TypedLetters::TakeBack() {
  if (letters_.isEmpty()) return false;
  const bool pair = letters_.back().isLowSurrogate() && letters_.size() > 1;
  letters_.chop(pair ? 2 : 1);
  Search();
  return true;
}

void TypedLetters::Drop() {
  letters_.clear();
  Search();
}

void TypedLetters::Search() {
  first_ = -1;
  count_ = 0;
  if (letters_.isEmpty()) return;
  for (int at = 0; at < names_.size(); ++at) {
    if (!names_.at(at).startsWith(letters_, Qt::CaseInsensitive)) continue;
    if (first_ < 0) first_ = at;
    ++count_;
  }
}

QString TypedLetters::Rest() const {
  return first_ < 0 ? QString() : names_.at(first_).mid(letters_.size());
}

int TypedLetters::Choice() const {
  if (count_ == 1) return first_;
  int whole = -1;
  int others = 0;  // further names that differ from it in case alone
  for (int at = 0; at < names_.size() && count_ > 0; ++at) {
    const QString& name = names_.at(at);
    // Of names that are the same to the letter the first stands for all.
    if (name == letters_) return at;
    if (name.compare(letters_, Qt::CaseInsensitive) != 0) continue;
    if (whole < 0) {
      whole = at;
    } else if (name != names_.at(whole)) {
      ++others;
    }
  }
  return others == 0 ? whole : -1;
}

QString TypedLetters::Reason() const {
  if (!Pending() || Choice() >= 0) return {};
  if (count_ == 0) return QStringLiteral("No entry begins with \"%1\"").arg(letters_);
  return QStringLiteral("%1 entries begin with \"%2\"").arg(count_).arg(letters_);
}

}  // namespace orvane
