# Korvo: the two commands a newcomer needs are `make run` and `make test`.
BUILD     ?= build
FUZZBUILD ?= build-fuzz
JOBS      ?= $(shell nproc)
FUZZ_SECONDS ?= 60
MONKEY_MINUTES ?= 30

WINBUILD  ?= build-windows

SANBUILD  ?= build-sanitized

.PHONY: all deps configure build run test test-sanitized tidy bench fuzz monkey clean windows windows-test

all: build

deps:
	@scripts/install-deps

$(BUILD)/build.ninja: | deps
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo

configure: $(BUILD)/build.ninja

build: deps configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	scripts/run-designer $(BUILD)/bin

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

# The whole suite again, built under AddressSanitizer and
# UndefinedBehaviorSanitizer: any report fails the test that met it. .ci/run
# runs it after `make test`.
test-sanitized: deps
	cmake -S . -B $(SANBUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DKORVO_SANITIZE=ON
	cmake --build $(SANBUILD) -j $(JOBS)
	cd $(SANBUILD) && QT_QPA_PLATFORM=offscreen \
	    ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1 \
	    ctest --output-on-failure -j $(JOBS) --timeout 900

# clang-tidy with the checks of .clang-tidy over the program's sources.
tidy: build
	run-clang-tidy -p $(BUILD) -j $(JOBS) -quiet $(shell ls core/*.cpp label/*.cpp editor/*.cpp \
	    transfer/*.cpp preview/*.cpp ui/*.cpp app/*.cpp cli/*.cpp tools/*/*.cpp | grep -v PuertoSerieWin)

bench: deps
	cmake -S . -B $(BUILD)-bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DKORVO_BENCH=ON
	cmake --build $(BUILD)-bench -j $(JOBS) --target benchmarks
	scripts/run-benchmarks $(BUILD)-bench/bin

fuzz: deps
	CC=clang CXX=clang++ cmake -S . -B $(FUZZBUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DKORVO_FUZZ=ON
	cmake --build $(FUZZBUILD) -j $(JOBS) --target fuzzers
	scripts/run-fuzzers $(FUZZBUILD)/bin $(FUZZ_SECONDS)

# The designer under random actions, with AddressSanitizer and
# UndefinedBehaviorSanitizer; failing runs are kept in monkey-failures/.
monkey: deps
	CC=clang CXX=clang++ cmake -S . -B $(FUZZBUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DKORVO_FUZZ=ON
	cmake --build $(FUZZBUILD) -j $(JOBS) --target korvo-monkey
	$(FUZZBUILD)/bin/korvo-monkey --minutes $(MONKEY_MINUTES) --keep monkey-failures

# Korvo for Windows, cross-built here: dist/korvo-<version>-win64.zip and
# dist/korvo-<version>-setup.exe. Qt, SQLite and libuemf for Windows are
# built once from Debian's sources and kept in ~/.cache/korvo-windows.
windows: build
	@scripts/install-deps windows
	scripts/make-windows $(WINBUILD) $(BUILD)

# The Windows build's tests under Wine, and a transfer from korvo-cli.exe
# through a COM port to the virtual scale. Not part of `make test`.
windows-test: windows
	scripts/test-windows $(WINBUILD) $(BUILD)

clean:
	rm -rf $(BUILD) $(BUILD)-bench $(FUZZBUILD) $(WINBUILD) $(SANBUILD) dist
