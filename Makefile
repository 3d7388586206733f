# Build, run and test Larkwood. Every target sets up what it needs first.
BUILD ?= build
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
JOBS ?= 2
PREFIX ?= $(HOME)/.local
MAKEFLAGS += --no-print-directory

.PHONY: setup configure build run test fuzz bench install clean

setup:
	@bash scripts/bootstrap.sh

configure: setup
	@cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo > $(BUILD)-configure.log 2>&1 || (cat $(BUILD)-configure.log; exit 1)

build: configure
	@cmake --build $(BUILD) -j$(JOBS)

run: build
	@bash scripts/run.sh $(BUILD)

test: build
	@cd $(BUILD) && ctest --output-on-failure -j$(JOBS)

bench: build
	@cmake --build $(BUILD) -j$(JOBS) --target benchmarks
	@for b in $(BUILD)/bench/bench_*; do [ -f "$$b" ] && [ -x "$$b" ] || continue; echo "== $$b"; \
	  LARKWOOD_RESOURCES=$(CURDIR)/$(BUILD)/share/larkwood bash tests/run-test.sh "$$b" || exit 1; done

install: build
	@cmake --install $(BUILD) --prefix $(PREFIX)

fuzz: setup
	@cmake -S . -B $(FUZZ_BUILD) -DLARKWOOD_FUZZ=ON -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo > /dev/null
	@cmake --build $(FUZZ_BUILD) -j$(JOBS)
	@mkdir -p $(FUZZ_BUILD)/corpus && cp -u fuzz/corpus/* $(FUZZ_BUILD)/corpus/
	@$(FUZZ_BUILD)/fuzz/fuzz_json_comments -max_total_time=$(FUZZ_SECONDS) -print_final_stats=1 $(FUZZ_BUILD)/corpus

clean:
	rm -rf $(BUILD) $(FUZZ_BUILD)
