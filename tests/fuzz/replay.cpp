// In place of libFuzzer: hands the fuzzer each file that is named, and no bytes at all.
#include <cstdlib>

#include "fuzz/fuzz.h"

int main(int argc, char** argv) {
  panelkit::fuzz::Try({});
  for (int i = 1; i < argc; ++i) panelkit::fuzz::Try(panelkit::test::Get(argv[i]));
  return argc > 1 ? EXIT_SUCCESS : EXIT_FAILURE;
}
