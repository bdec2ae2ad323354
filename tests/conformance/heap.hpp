// The library's heap requests, seen from the test program. Where the program is linked with
// --wrap=malloc --wrap=free (ELF targets), every malloc and free of the library passes through
// here while a Watch is alive: the blocks are recorded (so that an object's memory can be
// compared byte for byte and a leak seen at once), and a chosen request can be made to fail.
// Elsewhere watched() is false and the functions do nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace conf::heap {

bool watched();

class Watch {
  public:
    // While it is alive: the fail_at-th request (1-based; 0: none) fails, and so does every
    // request of more than `limit` bytes.
    explicit Watch(long fail_at = 0, size_t limit = SIZE_MAX);
    ~Watch();
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    long requests() const;                                // malloc calls so far
    std::vector<std::pair<void*, size_t>> blocks() const; // allocated and not yet freed
    bool overflowed() const;                              // too many blocks to keep track of
};

} // namespace conf::heap
