# The front door. The work beneath is done by the CMake presets and by scripts/.

help:
	@echo "make demo     a property package in use, from the registry to a flash"
	@echo "make test     all tests: native with sanitizers, native, and the Windows build under Wine"
	@echo "make check    what to run before each commit: the native tests with sanitizers"
	@echo "make bench    the measurements in bench/"
	@echo "make soak     CALLS=n mixed calls in one process, natively and under Wine; a million without a number"
	@echo "make coverage the lines of the library that the native tests reach, into build/linux-coverage/coverage"
	@echo "make fuzz     looks for input that breaks something, MINUTES=1 of processor time for each target of fuzz/"
	@echo "make guide    the user guide, into build/linux/guide"
	@echo "make plots    draws the plots of the user guide anew"
	@echo "make dist     what ships, packed into dist/"
	@echo "make check-dist  whether what ships has the same bytes when it is made again"
	@echo "make format   lays out the sources with clang-format"
	@echo "make lint     layout, clang++, clang-tidy, shellcheck, .m files, the rules of the house"
	@echo "make lint-all the same, clang-tidy over what was clean the last time, too"
	@echo "make clean    removes build/ and dist/"
	@echo
	@echo "demo, test and check first install what this machine lacks (Debian, Ubuntu)."

demo:
	@scripts/bootstrap.sh
	@scripts/demo.sh

test:
	@scripts/bootstrap.sh
	@scripts/test.sh

check:
	@scripts/bootstrap.sh
	@scripts/check.sh

bench:
	@scripts/bootstrap.sh bench
	@scripts/bench.sh

soak:
	@scripts/bootstrap.sh
	@scripts/soak.sh $(CALLS)

coverage:
	@scripts/bootstrap.sh coverage
	@scripts/coverage.sh

MINUTES = 1
fuzz:
	@scripts/bootstrap.sh fuzz
	@scripts/fuzz.sh $(MINUTES)

guide:
	@scripts/bootstrap.sh
	@cmake --preset linux >/dev/null
	@cmake --build --preset linux --target guide

plots:
	@scripts/bootstrap.sh
	@scripts/plots.sh

dist:
	@scripts/bootstrap.sh
	@scripts/dist.sh

check-dist:
	@scripts/bootstrap.sh
	@scripts/check_dist.sh

format:
	@scripts/bootstrap.sh lint
	@git ls-files '*.h' '*.cpp' | xargs clang-format -i

lint:
	@scripts/bootstrap.sh lint bench
	@scripts/lint.sh

lint-all:
	@scripts/bootstrap.sh lint bench
	@scripts/lint.sh --all

clean:
	@[ ! -d build/wine ] || scripts/wine.sh --kill
	@rm -rf build dist

.PHONY: help demo test check bench soak coverage fuzz guide plots dist check-dist format lint lint-all clean
