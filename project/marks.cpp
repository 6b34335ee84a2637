#include "project/marks.h"

#include <cstddef>

namespace orvane {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Counts up the signs that end in front of `end`, from the last one on: each that is the last of
// its kind begins anew, and the one before it goes up too. Where they all do, one more stands in
// front of them.
std::string CountedUp(std::string_view mark, std::size_t end, bool (*belongs)(char)) {
  std::string next(mark);
  std::size_t at = end;
  for (; at > 0 && belongs(next[at - 1]); --at) {
    char& sign = next[at - 1];
    if (sign != '9' && sign != 'Z' && sign != 'z') {
      ++sign;
      return next;
    }
    sign = sign == '9' ? '0' : sign == 'Z' ? 'A' : 'a';
  }
  // Behind 9 comes 10, behind Z comes AA.
  const char first = next[at] == '0' ? '1' : next[at];
  next.insert(at, 1, first);
  return next;
}

// The end of the last group of those signs; 0 for none.
std::size_t EndOfLast(std::string_view mark, bool (*belongs)(char)) {
  std::size_t end = mark.size();
  while (end > 0 && !belongs(mark[end - 1])) --end;
  return end;
}

}  // namespace

std::string MarkBehind(std::string_view mark) {
  for (const auto belongs : {IsDigit, IsLetter}) {
    if (const std::size_t end = EndOfLast(mark, belongs); end > 0) {
      return CountedUp(mark, end, belongs);
    }
  }
  return {};
}

std::string NextFreeMark(std::string_view mark,
                         const std::function<bool(const std::string& mark)>& isFree) {
  std::string next = MarkBehind(mark);
  while (!next.empty() && !isFree(next)) next = MarkBehind(next);
  return next;
}

}  // namespace orvane
