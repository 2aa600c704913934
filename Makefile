# The two commands: make run, make test. Everything they need is installed and built on the way.
BUILD := build
SAMPLE := samples/pazienti.rec
OUR_SOURCES = $(shell find $(filter-out $(BUILD)/,$(wildcard */)) -name '*.h' -o -name '*.cpp')

.PHONY: setup configure build run guida test sanitize fuzz bench windows deb format lint check-format clean

setup:
	@sh packaging/install-packages.sh

configure: setup
	@mkdir -p $(BUILD)
	@cmake --preset release -Wno-dev > $(BUILD)/configure.log 2>&1 || { cat $(BUILD)/configure.log; exit 1; }

build: configure
	cmake --build --preset release

# Without a display: the same off screen, a picture instead of the window.
run: build
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then \
	    $(BUILD)/bin/quorvin $(SAMPLE); \
	else \
	    $(BUILD)/bin/quorvin-cli info $(SAMPLE) && \
	    $(BUILD)/bin/quorvin-cli mostra $(SAMPLE) 7 && \
	    echo "Rome, and a surname with an a; the list shows the town too:" && \
	    $(BUILD)/bin/quorvin-cli cerca $(SAMPLE) -c COMUNE=roma -c COGNOME=a --check2 && \
	    QT_QPA_PLATFORM=offscreen $(BUILD)/bin/quorvin --rekord 7 --immagine $(BUILD)/quorvin.png $(SAMPLE) && \
	    echo "No display: a picture of the window is in $(BUILD)/quorvin.png"; \
	fi

# The user's guide, with pictures of the program as it is; a program built here finds it beside itself.
guida: configure
	@sh packaging/install-packages.sh packaging/guide-packages.txt
	cmake --build --preset release --target quorvin quorvin-cli
	sh packaging/guide/pictures.sh $(BUILD)/bin/quorvin doc/guida
	sh packaging/guide/build.sh $(BUILD)/guida
	cp $(BUILD)/guida/guida.html $(BUILD)/bin/
	@echo "The guide: $(BUILD)/guida/guida.html and $(BUILD)/guida/guida.pdf; a copy is in $(BUILD)/bin for the program"

test: build
	QT_QPA_PLATFORM=offscreen ctest --test-dir $(BUILD) --output-on-failure -j 2

sanitize: setup
	cmake --preset sanitize -Wno-dev
	cmake --build --preset sanitize
	QT_QPA_PLATFORM=offscreen ctest --test-dir $(BUILD)/sanitize --output-on-failure -j 2

# SECONDS for each target.
SECONDS = 60
fuzz: setup
	@sh packaging/install-packages.sh packaging/fuzz-packages.txt
	cmake --preset fuzz -Wno-dev
	cmake --build --preset fuzz
	nice -n 10 sh fuzz/run.sh $(BUILD)/fuzz $(SECONDS)

bench: setup
	cmake --preset bench -Wno-dev
	cmake --build --preset bench
	sh bench/run.sh $(BUILD)/bench

# The Windows programs, built here, tried under Wine and packed. STEP=pack leaves the trials out; packaging/windows/make.sh has more.
STEP = all
windows:
	sh packaging/windows/make.sh $(STEP)

# The Debian package of the last commit: build/deb/quorvin_VERSION_ARCHITECTURE.deb.
deb: setup
	@sh packaging/install-packages.sh packaging/debian-build-packages.txt
	sh packaging/build-deb.sh

format: setup
	clang-format -i $(OUR_SOURCES)

check-format: setup
	clang-format --dry-run -Werror $(OUR_SOURCES)

# Needs the compile commands and the generated headers of a build; what only Windows compiles has none here.
lint: build
	@echo $(filter %.cpp,$(OUR_SOURCES)) | tr ' ' '\n' | grep -v -e '^bench/' -e Windows | \
	    xargs -P 2 -n 4 clang-tidy -p $(BUILD) --quiet --extra-arg=-Wno-unknown-warning-option

clean:
	rm -rf $(BUILD)
