#include "tools/batch_workers.h"

#include <algorithm>
#include <map>
#include <utility>

#ifdef __linux__
#include <sys/prctl.h>
#endif
#ifndef _WIN32
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <vector>

#include "core/numbers.h"
#endif

namespace orvane {

namespace {

using Work = std::function<Worked(int)>;

// Tells the pieces in their order, however they come.
class InOrder {
 public:
  explicit InOrder(const std::function<void(int, const Worked&)>& tell) : tell_(tell) {}

  void Take(int piece, Worked worked) {
    waiting_.emplace(piece, std::move(worked));
    while (!waiting_.empty() && waiting_.begin()->first == next_) {
      tell_(next_, waiting_.begin()->second);
      waiting_.erase(waiting_.begin());
      ++next_;
    }
  }

 private:
  const std::function<void(int, const Worked&)>& tell_;
  std::map<int, Worked> waiting_;
  int next_ = 0;
};

void DoHere(int first, int count, const Work& work, InOrder& told) {
  for (int piece = first; piece < count; ++piece) told.Take(piece, work(piece));
}

#ifndef _WIN32

// In front of what a worker has said.
struct Header {
  std::int32_t Code = 0;
  std::uint32_t Said = 0;  // bytes of the texts that come behind it
  std::uint32_t Out = 0;
};

bool Send(int socket, const void* bytes, std::size_t count) {
  const char* at = static_cast<const char*>(bytes);
  while (count > 0) {
    const ssize_t sent = send(socket, at, count, MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return false;
    at += sent;
    count -= static_cast<std::size_t>(sent);
  }
  return true;
}

bool Receive(int socket, void* bytes, std::size_t count) {
  char* at = static_cast<char*>(bytes);
  while (count > 0) {
    const ssize_t got = recv(socket, at, count, 0);
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) return false;
    at += got;
    count -= static_cast<std::size_t>(got);
  }
  return true;
}

// A worker ends with the process that asked for it, in the middle of a piece too: nobody hears any
// more what it says, and it may wait for ever for a job that comes through a pipe. Elsewhere it
// ends with its piece.
void EndWith(pid_t asking) {
#ifdef __linux__
  (void)prctl(PR_SET_PDEATHSIG, SIGTERM);
  // It may have ended before that.
  if (getppid() != asking) _exit(1);
#else
  (void)asking;
#endif
}

// The life of a worker: pieces come by their number until there are no more.
[[noreturn]] void Serve(int socket, const Work& work) {
  for (std::int32_t piece = 0; Receive(socket, &piece, sizeof piece);) {
    Worked worked;
    try {
      worked = work(piece);
    } catch (...) {
      // What is above belongs to the process that this one is a copy of.
      _exit(1);
    }
    const Header header{worked.Code, static_cast<std::uint32_t>(worked.Said.size()),
                        static_cast<std::uint32_t>(worked.Out.size())};
    if (!Send(socket, &header, sizeof header) ||
        !Send(socket, worked.Said.data(), worked.Said.size()) ||
        !Send(socket, worked.Out.data(), worked.Out.size())) {
      break;
    }
  }
  // Nothing of the copy is taken down: files and windows are this one's, not the copy's.
  _exit(0);
}

std::string DeathOf(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  if (WIFSIGNALED(status)) {
    return "signal " + DecimalText(WTERMSIG(status)) + ", " + strsignal(WTERMSIG(status));
  }
  return "exit code " + DecimalText(WEXITSTATUS(status));
}

class Pool {
 public:
  Pool(int count, const Work& work, InOrder& told) : count_(count), work_(work), told_(told) {}

  // What is left when this comes back with pieces not given out is for the caller.
  int Run(int workers) {
    for (int i = 0; i < std::min(workers, count_); ++i) {
      if (!Hire()) break;
    }
    while (!crew_.empty()) HearAll();
    return next_;
  }

 private:
  struct Worker {
    int Socket = -1;
    pid_t Process = -1;
    int Piece = -1;  // that it works on
  };

  // Makes a worker and gives it the next piece; false if there is no process to be had, or nothing
  // to do.
  bool Hire() {
    std::array<int, 2> ends{};
    if (next_ >= count_ || socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0) return false;
    const pid_t asking = getpid();
    const pid_t process = fork();
    if (process == 0) {
      EndWith(asking);
      // An end that stayed open here would keep the other workers waiting for ever.
      for (const Worker& other : crew_) close(other.Socket);
      close(ends[0]);
      Serve(ends[1], work_);
    }
    close(ends[1]);
    if (process < 0) {
      close(ends[0]);
      return false;
    }
    crew_.push_back({ends[0], process, -1});
    GiveWork(crew_.back());
    return true;
  }

  // One that is dead already is found out when it is heard.
  void GiveWork(Worker& worker) {
    worker.Piece = next_++;
    const std::int32_t piece = worker.Piece;
    (void)Send(worker.Socket, &piece, sizeof piece);
  }

  // Waits for workers that have something to say, and hears them.
  void HearAll() {
    std::vector<pollfd> waits;
    waits.reserve(crew_.size());
    for (const Worker& worker : crew_) waits.push_back({worker.Socket, POLLIN, 0});
    if (poll(waits.data(), waits.size(), -1) < 0) return;  // interrupted
    for (const pollfd& wait : waits) {
      if (wait.revents != 0) Hear(wait.fd);
    }
  }

  void Hear(int socket) {
    const auto worker = std::find_if(crew_.begin(), crew_.end(),
                                     [socket](const Worker& one) { return one.Socket == socket; });
    Header header;
    Worked worked;
    bool whole = Receive(socket, &header, sizeof header);
    if (whole) {
      worked.Code = header.Code;
      worked.Said.resize(header.Said);
      worked.Out.resize(header.Out);
      whole = Receive(socket, worked.Said.data(), worked.Said.size()) &&
              Receive(socket, worked.Out.data(), worked.Out.size());
    }
    const int piece = worker->Piece;
    if (whole && next_ < count_) {
      GiveWork(*worker);
    } else {
      close(socket);
      const std::string death = DeathOf(worker->Process);
      crew_.erase(worker);
      if (!whole) {
        worked = {0, "", death, ""};
        (void)Hire();
      }
    }
    told_.Take(piece, std::move(worked));
  }

  int count_;
  const Work& work_;
  InOrder& told_;
  std::vector<Worker> crew_;
  int next_ = 0;  // the first piece that nobody has got
};

#endif

}  // namespace

void DoInWorkers(int count, int workers, const Work& work,
                 const std::function<void(int, const Worked&)>& tell) {
  InOrder told(tell);
  int first = 0;
#ifndef _WIN32
  if (workers > 1) first = Pool(count, work, told).Run(workers);
#else
  (void)workers;
#endif
  DoHere(first, count, work, told);
}

}  // namespace orvane
