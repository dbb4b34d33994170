# The two everyday entries:  make run  (the demo)  and  make test  (all tests).
BUILD ?= build
CMAKE_FLAGS ?=
ifneq ($(CI),)
CMAKE_FLAGS += -DVIGIL_WERROR=ON
endif
# The sanitizer and fuzz builds keep folders of their own; -O1 with line tables keeps them
# quick and their reports readable.
SANITIZE_BUILD ?= build-sanitize
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
CHECKED_BUILD_TYPE := -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g1"

.PHONY: all setup build run sim-demo screenshots test test-sanitize fuzz bench format clean

all: build

setup:
	scripts/setup

build: setup
	cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS)
	cmake --build $(BUILD)

run: build
	$(BUILD)/bin/vigil --demo

sim-demo: build
	scripts/demo $(BUILD)

screenshots: build
	tools/screenshots $(BUILD) screenshots

test: build
	ctest --test-dir $(BUILD) --output-on-failure -j2

# The whole suite under AddressSanitizer and UndefinedBehaviorSanitizer. Leaks of the
# libraries below us are suppressed by name in tests/sanitize/lsan.supp, never our own.
test-sanitize: setup
	cmake -S . -B $(SANITIZE_BUILD) -G Ninja -DVIGIL_SANITIZE=ON -DVIGIL_BUILD_BENCHMARKS=OFF \
	  $(CHECKED_BUILD_TYPE) $(CMAKE_FLAGS)
	cmake --build $(SANITIZE_BUILD)
	ASAN_OPTIONS=detect_stack_use_after_return=1:check_initialization_order=1 \
	UBSAN_OPTIONS=print_stacktrace=1 \
	LSAN_OPTIONS=suppressions=$(CURDIR)/tests/sanitize/lsan.supp:print_suppressions=0 \
	  ctest --test-dir $(SANITIZE_BUILD) --output-on-failure -j2

# Each fuzz target for FUZZ_SECONDS on a copy of its corpus; crashes land in
# $(FUZZ_BUILD)/fuzz-crashes/<target>/.
fuzz: setup
	cmake -S . -B $(FUZZ_BUILD) -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DVIGIL_FUZZ=ON \
	  $(CHECKED_BUILD_TYPE)
	cmake --build $(FUZZ_BUILD)
	fuzz/run $(FUZZ_BUILD) $(FUZZ_SECONDS)

bench: build
	$(BUILD)/bin/bench_store
	$(BUILD)/bin/bench_tree
	$(BUILD)/bin/bench_drivers
	$(BUILD)/bin/bench_queues
	$(BUILD)/bin/bench_spool
	$(BUILD)/bin/bench_window
	PRINTERS=2000 bench/sim-load $(BUILD) c-series 2100
	bench/sim-load $(BUILD) a-series 2011
	bench/sim-load $(BUILD) avery 123

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD) $(SANITIZE_BUILD) $(FUZZ_BUILD)
