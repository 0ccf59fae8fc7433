# The commands of the README: `make run`, `make test` and `make package`.
# Each installs what is missing, configures and builds first.

BUILD_DIR ?= build
BUILD_TYPE ?= RelWithDebInfo
JOBS ?= $(shell nproc)
# WERROR=ON (as CI builds) makes every compiler warning an error.
WERROR ?= OFF
CMAKE_FLAGS = -DCMAKE_COMPILE_WARNING_AS_ERROR=$(WERROR)

.PHONY: all deps configure build run test package bench docs format format-check clean

all: build

deps:
	@bash scripts/install-deps.sh

$(BUILD_DIR)/build.ninja: | deps
	cmake -S . -B $(BUILD_DIR) -G Ninja -DCMAKE_BUILD_TYPE=$(BUILD_TYPE) $(CMAKE_FLAGS)

configure: deps $(BUILD_DIR)/build.ninja

build: configure
	cmake --build $(BUILD_DIR) -j $(JOBS)

# The display is checked before the build, so that a missing one is told at once.
run: deps
	@bash scripts/run.sh --check
	@$(MAKE) --no-print-directory build
	@bash scripts/run.sh $(BUILD_DIR)

test: build
	cd $(BUILD_DIR) && ctest --output-on-failure -j $(JOBS)

# The Debian package, in $(BUILD_DIR)/package; its path is the last line printed.
package: build
	rm -f $(BUILD_DIR)/package/*.deb
	cd $(BUILD_DIR) && cpack --config CPackConfig.cmake -B "$$PWD/package"
	@realpath $(BUILD_DIR)/package/*.deb

bench: build
	@bash scripts/bench.sh $(BUILD_DIR)

# The README's chart, made by the built tovarin-report (a test checks it is
# current), and the web page's pictures at 1280x800 and 360x740, taken by its test.
docs: build web
	$(BUILD_DIR)/cli/tovarin-report --format svg examples/worked-example.txt >docs/worked-example-chart.svg
	cd tests/web && TOVARIN_WEB_SCREENSHOTS=$(CURDIR)/docs node page.test.mjs $(CURDIR)/$(WASM_DIR)/web \
	  $(CURDIR)/$(BUILD_DIR)/cli/tovarin-report $(CURDIR)

# Every tracked C++ file as clang-format leaves it; format-check only tells.
CXX_FILES = git ls-files '*.cpp' '*.hpp'
format:
	$(CXX_FILES) | xargs clang-format -i

format-check:
	$(CXX_FILES) | xargs clang-format --dry-run -Werror

clean:
	rm -rf $(BUILD_DIR)

# Hardening: the whole test suite under AddressSanitizer and UndefinedBehaviorSanitizer
# (clang 14), and the libFuzzer targets for a bounded time each.
SAN_DIR ?= build-sanitize
FUZZ_DIR ?= build-fuzz
FUZZ_SECONDS ?= 60

.PHONY: sanitize fuzz portable

sanitize: deps
	CC=clang-14 CXX=clang++-14 cmake -S . -B $(SAN_DIR) -G Ninja -DCMAKE_BUILD_TYPE=Debug $(CMAKE_FLAGS) \
	  -DTOVARIN_BUILD_BENCH=OFF -DTOVARIN_HARDENING=OFF \
	  -DCMAKE_CXX_FLAGS="-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer" \
	  -DCMAKE_EXE_LINKER_FLAGS="-fsanitize=address,undefined"
	cmake --build $(SAN_DIR) -j $(JOBS)
	cd $(SAN_DIR) && ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  LSAN_OPTIONS=suppressions=$(CURDIR)/fuzz/lsan.supp \
	  ctest --output-on-failure -j $(JOBS) --label-exclude package

fuzz: deps
	CC=clang-14 CXX=clang++-14 cmake -S . -B $(FUZZ_DIR) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo $(CMAKE_FLAGS) \
	  -DTOVARIN_BUILD_GUI=OFF -DTOVARIN_BUILD_TESTS=OFF -DTOVARIN_BUILD_BENCH=OFF -DTOVARIN_BUILD_FUZZ=ON -DTOVARIN_HARDENING=OFF
	cmake --build $(FUZZ_DIR) -j $(JOBS)
	@bash fuzz/run.sh $(FUZZ_DIR) $(FUZZ_SECONDS)

# The core and tovarin-report with the other toolchains that run here
# (toolchains/): Clang with libc++ as on macOS, MinGW-w64 for Windows under
# Wine, Emscripten under Node, each in a folder of its own (build-libcxx/,
# build-windows/, build-wasm/) and held against this build's tovarin-report.
portable: configure
	@JOBS=$(JOBS) bash toolchains/portable.sh $(BUILD_DIR)

# The web page: the engine as WebAssembly in a static site, build-wasm/web/
# (the Emscripten build of `make portable`, configured here as that configures
# it when it is not yet there). Its index.html is the last line printed; it
# works opened from disk. web-serve serves it on 127.0.0.1:$(WEB_PORT).
WASM_DIR ?= build-wasm
WEB_PORT ?= 8000

.PHONY: web web-serve

web: deps
	@test -f $(WASM_DIR)/build.ninja || bash toolchains/configure.sh emscripten $(WASM_DIR)
	NODE_PATH=/usr/share/nodejs cmake --build $(WASM_DIR) -j $(JOBS) --target web_site
	@realpath $(WASM_DIR)/web/index.html

web-serve: web
	python3 -m http.server --bind 127.0.0.1 --directory $(WASM_DIR)/web $(WEB_PORT)
