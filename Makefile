# The two everyday entries:  make run  (the demo)  and  make test  (all tests).
BUILD ?= build
CMAKE_FLAGS ?=
ifneq ($(CI),)
CMAKE_FLAGS += -DVIGIL_WERROR=ON
endif

.PHONY: all setup build run sim-demo screenshots test bench format clean

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

bench: build
	$(BUILD)/bin/bench_store
	$(BUILD)/bin/bench_tree
	$(BUILD)/bin/bench_drivers
	$(BUILD)/bin/bench_queues
	$(BUILD)/bin/bench_window
	bench/sim-load $(BUILD) c-series 2100
	bench/sim-load $(BUILD) a-series 2011
	bench/sim-load $(BUILD) avery 123

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD)
