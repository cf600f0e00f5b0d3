# Raccourcis : tout passe par CMake et Ninja dans build/.
BUILD ?= build
JOBS ?= 2
PREFIX ?= /usr/local

.PHONY: run test bench fuzz configure build dependances clean format install paquet captures

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

# Installation sur ce bureau (PREFIX, et DESTDIR pour une arborescence à part).
install: build
	cmake --install $(BUILD) --prefix $(PREFIX)
	@if [ -z "$$DESTDIR" ] && command -v update-mime-database >/dev/null; then \
	  update-mime-database $(PREFIX)/share/mime; fi
	@if [ -z "$$DESTDIR" ] && command -v update-desktop-database >/dev/null; then \
	  update-desktop-database $(PREFIX)/share/applications; fi

# Paquet Debian dans $(BUILD)/ : apt install ./$(BUILD)/maroval_*.deb
paquet: build
	cd $(BUILD) && cpack -G DEB

# Chaque écran photographié dans une société générée : PNG dans $(BUILD)/captures.
captures: configure
	cmake --build $(BUILD) -j $(JOBS) --target maroval-captures
	@if [ -z "$$DISPLAY" ] && [ -z "$$WAYLAND_DISPLAY" ]; then \
	  xvfb-run -a -s "-screen 0 1280x1024x24" $(BUILD)/captures/maroval-captures $(BUILD)/captures; \
	else $(BUILD)/captures/maroval-captures $(BUILD)/captures; fi

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
