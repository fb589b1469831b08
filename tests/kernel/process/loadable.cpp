// A library that tst_module loads by hand.

extern int nowhereToBeFound();

extern "C" {

[[gnu::visibility("default")]] int fortyTwo() { return 42; }

// A call that cannot be resolved does no harm as long as nobody makes it.
[[gnu::visibility("default")]] int neverCalled() { return nowhereToBeFound(); }
}
