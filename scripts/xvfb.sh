# Sourced by the scripts that drive Tovarin on a private X server. start_xvfb
# [GEOMETRY] sets DISPLAY and XVFB_PID; stop_xvfb ends that server. Xvfb picks a
# free display and writes its number once it accepts clients; -noreset keeps a
# stray client's disconnect from resetting it.
start_xvfb() {
    local number_file tries=0
    number_file=$(mktemp)
    Xvfb -displayfd 3 -noreset -nolisten tcp -screen 0 "${1:-1280x1024x24}" 3>"$number_file" 2>/dev/null &
    XVFB_PID=$!
    until grep -q '^[0-9]' "$number_file"; do
        if ! kill -0 "$XVFB_PID" 2>/dev/null || [ $((tries += 1)) -gt 200 ]; then
            rm -f "$number_file" && echo "error: Xvfb did not start" >&2 && return 1
        fi
        sleep 0.05
    done
    export DISPLAY=":$(head -n 1 "$number_file")"
    rm -f "$number_file"
    # Qt wants a private runtime folder and complains on every start without one.
    if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
        XVFB_RUNTIME_DIR=$(mktemp -d) && export XDG_RUNTIME_DIR=$XVFB_RUNTIME_DIR
    fi
}

stop_xvfb() {
    [ -z "${XVFB_PID:-}" ] || { kill "$XVFB_PID" 2>/dev/null; wait "$XVFB_PID" 2>/dev/null || true; XVFB_PID=; }
    [ -z "${XVFB_RUNTIME_DIR:-}" ] || { rm -rf "$XVFB_RUNTIME_DIR"; XVFB_RUNTIME_DIR=; }
}
