// How long a test waits for what must come: until it is taken to hang, and longer than any machine
// needs that does other work at the same time. Nothing is meant to take that long.
#pragma once

namespace orvane::test {

constexpr int Patience = 300000;  // ms

}  // namespace orvane::test
