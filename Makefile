# Thin names over tools/ and the CMake presets.
.PHONY: run test lint bench coverage fuzz circle windows windows-check package tsj

run:      ; @tools/run.sh
test:     ; @tools/test.sh
lint:     ; @tools/lint.sh
bench:    ; @tools/bench.sh
coverage: ; @tools/coverage.sh
fuzz:     ; @tools/fuzz.sh $(SECONDS)
circle:   ; @tools/circle.sh "$(SESSIONS)" "$(FROM)" "$(DESKTOP)"
windows:  ; @tools/build_windows.sh
package:  ; @tools/package.sh
tsj:      ; @tools/tsj.sh
windows-check: ; @tools/windows_check.sh
