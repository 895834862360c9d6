# Thin names over tools/ and the CMake presets.
.PHONY: run test bench fuzz windows

run:      ; @tools/run.sh
test:     ; @tools/test.sh
bench:    ; @tools/bench.sh
fuzz:     ; @tools/fuzz.sh $(SECONDS)
windows:  ; @tools/build_windows.sh
