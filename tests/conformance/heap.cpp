// See heap.hpp. The hooks must not allocate: the blocks are kept in a fixed table.
#include "heap.hpp"

#include <cstdint>
#include <cstdlib>

namespace {

constexpr int kMaxBlocks = 1 << 14;
std::pair<void*, size_t> g_blocks[kMaxBlocks]; // allocated and not yet freed
int g_count = 0;
bool g_overflow = false;
bool g_on = false;
long g_requests = 0;
long g_fail_at = 0;
size_t g_limit = SIZE_MAX;

} // namespace

#if VEKS_CONF_WRAPPED_MALLOC
extern "C" void* __real_malloc(size_t n);
extern "C" void __real_free(void* p);

extern "C" void* __wrap_malloc(size_t n) {
    if (!g_on) return __real_malloc(n);
    ++g_requests;
    if (g_requests == g_fail_at || n > g_limit) return nullptr;
    void* p = __real_malloc(n);
    if (p != nullptr && g_count < kMaxBlocks)
        g_blocks[g_count++] = {p, n};
    else if (p != nullptr)
        g_overflow = true;
    return p;
}

extern "C" void __wrap_free(void* p) {
    if (g_on && p != nullptr)
        for (int i = 0; i < g_count; ++i)
            if (g_blocks[i].first == p) {
                g_blocks[i] = g_blocks[--g_count];
                break;
            }
    __real_free(p);
}
#endif

namespace conf::heap {

bool watched() { return VEKS_CONF_WRAPPED_MALLOC != 0; }

Watch::Watch(long fail_at, size_t limit) {
    g_fail_at = fail_at;
    g_limit = limit;
    g_count = 0;
    g_overflow = false;
    g_requests = 0;
    g_on = true;
}

Watch::~Watch() {
    g_on = false;
    g_fail_at = 0;
    g_limit = SIZE_MAX;
}

long Watch::requests() const { return g_requests; }

std::vector<std::pair<void*, size_t>> Watch::blocks() const {
    const bool was = g_on;
    g_on = false; // the vector below allocates
    std::vector<std::pair<void*, size_t>> v(g_blocks, g_blocks + g_count);
    g_on = was;
    return v;
}

bool Watch::overflowed() const { return g_overflow; }

} // namespace conf::heap
