# Thin names over tools/ and the CMake presets.
.PHONY: run test bench fuzz circle windows

run:      ; @tools/run.sh
test:     ; @tools/test.sh
bench:    ; @tools/bench.sh
fuzz:     ; @tools/fuzz.sh $(SECONDS)
circle:   ; @tools/circle.sh "$(SESSIONS)" "$(FROM)" "$(DESKTOP)"
windows:  ; @tools/build_windows.sh
