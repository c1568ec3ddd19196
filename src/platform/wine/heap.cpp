#include "platform/wine/heap.h"

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace panelkit {

namespace {

#ifdef __GLIBC__

constexpr int kReserved = 32 << 20;
constexpr int kLargestInHeap = 1 << 20;

bool Reserve() {
  mallopt(M_MMAP_THRESHOLD, kLargestInHeap);
  mallopt(M_TRIM_THRESHOLD, 2 * kReserved);  // Free memory at its end is kept.
  // The heap grows by this much more than a block needs that it has no room for.
  mallopt(M_TOP_PAD, kReserved);
  const auto begin = reinterpret_cast<std::uintptr_t>(sbrk(0));
  void* volatile block = std::malloc(kLargestInHeap / 2);  // Volatile, or no call is made.
  std::free(block);
  const auto end = reinterpret_cast<std::uintptr_t>(sbrk(0));
  mallopt(M_TOP_PAD, kLargestInHeap);
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  const std::uintptr_t first = (begin + page - 1) / page * page;
  if (end <= first) return false;
  return madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE) == 0;
}

#else

bool Reserve() {
  return false;
}

#endif

}  // namespace

void UseHugePages() {
  [[maybe_unused]] static const bool reserved = Reserve();
}

}  // namespace panelkit
