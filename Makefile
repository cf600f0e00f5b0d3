# Raccourcis : tout passe par CMake et Ninja dans build/.
BUILD ?= build
JOBS ?= 2

.PHONY: run test bench fuzz configure build dependances clean format

dependances:
	@bash scripts/dependances.sh

configure: dependances
	@test -f $(BUILD)/build.ninja || cmake -S . -B $(BUILD) -G Ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	@if [ -z "$$DISPLAY" ] && [ -z "$$WAYLAND_DISPLAY" ] && [ -z "$$QT_QPA_PLATFORM" ]; then \
	  xvfb-run -a $(BUILD)/maroval $(ARGS); else $(BUILD)/maroval $(ARGS); fi

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

bench: configure
	cmake --build $(BUILD) -j $(JOBS) --target benchs
	@for b in $(BUILD)/bench/bench_*; do [ -x "$$b" ] && "$$b"; done; true

fuzz: dependances
	@test -f build-fuzz/build.ninja || CXX=clang++ cmake -S . -B build-fuzz -G Ninja -DMAROVAL_FUZZ=ON
	cmake --build build-fuzz -j $(JOBS) --target fuzz_textes fuzz_szdd
	@mkdir -p build-fuzz/corpus build-fuzz/corpus-szdd
	build-fuzz/fuzz/fuzz_textes -max_total_time=60 -rss_limit_mb=2048 build-fuzz/corpus fuzz/corpus
	build-fuzz/fuzz/fuzz_szdd -max_total_time=60 -rss_limit_mb=2048 build-fuzz/corpus-szdd fuzz/corpus-szdd

format:
	clang-format -i $$(git ls-files '*.cpp' '*.h')

clean:
	rm -rf $(BUILD) build-fuzz
