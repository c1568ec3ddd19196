#include "platform/wine/heap.h"

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <memory>

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
  void* const begin = sbrk(0);
  {
    const auto block = std::make_unique_for_overwrite<char[]>(kLargestInHeap / 2);
    static_cast<volatile char&>(block[0]) = 0;  // Or the compiler leaves the block out.
  }
  auto* const end = static_cast<char*>(sbrk(0));
  mallopt(M_TOP_PAD, kLargestInHeap);
  void* first = begin;
  auto size = static_cast<std::size_t>(end - static_cast<char*>(begin));
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  return std::align(page, 1, first, size) != nullptr && madvise(first, size, MADV_HUGEPAGE) == 0;
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
