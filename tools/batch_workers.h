// Work that is done several pieces at a time, each in a process of its own.
#pragma once

#include <functional>
#include <string>

namespace orvane {

// What became of a piece of work.
struct Worked {
  int Code = 0;      // exit code
  std::string Said;  // what is to be told of it, lines with their ends
  std::string Died;  // how its process died, whose code and words are lost then; else empty
  std::string Out;   // what goes to standard output
};

// Does the pieces 0 to `count` - 1 by `work`, `workers` of them at a time; each worker is a copy of
// this process, which does one piece behind the other. `tell` is called here, once for each piece
// and in their order, as soon as all pieces before it are told. A worker that dies takes no other
// piece with it: another one goes on. Where the system makes no process, now or ever, this one does
// the work itself.
//
// To be called by a process of one thread: a copy has no other.
void DoInWorkers(int count, int workers, const std::function<Worked(int)>& work,
                 const std::function<void(int, const Worked&)>& tell);

}  // namespace orvane
