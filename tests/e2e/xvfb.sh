# Sourced by the scripts that drive Tovarin on a private X server.
# start_xvfb sets DISPLAY and XVFB_PID; stop_xvfb ends that server.

# Starts Xvfb on the first free display; Xvfb itself picks and reports it.
start_xvfb() {
    local geometry=${1:-1280x1024x24}
    local number_file
    number_file=$(mktemp)
    Xvfb -displayfd 3 -screen 0 "$geometry" -nolisten tcp 3>"$number_file" 2>/dev/null &
    XVFB_PID=$!
    # Xvfb writes the display number once it accepts clients.
    local tries=0
    until [ -s "$number_file" ] && grep -q '^[0-9]' "$number_file"; do
        if ! kill -0 "$XVFB_PID" 2>/dev/null || [ $tries -ge 200 ]; then
            echo "error: Xvfb did not start" >&2
            rm -f "$number_file"
            return 1
        fi
        tries=$((tries + 1))
        sleep 0.05
    done
    export DISPLAY=":$(head -n1 "$number_file")"
    rm -f "$number_file"
    # Qt wants a private runtime folder and complains on every start without one.
    if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
        XDG_RUNTIME_DIR=$(mktemp -d)
        XVFB_RUNTIME_DIR=$XDG_RUNTIME_DIR
        export XDG_RUNTIME_DIR
    fi
}

stop_xvfb() {
    if [ -n "${XVFB_PID:-}" ]; then
        kill "$XVFB_PID" 2>/dev/null || true
        wait "$XVFB_PID" 2>/dev/null || true
        XVFB_PID=
    fi
    if [ -n "${XVFB_RUNTIME_DIR:-}" ]; then
        rm -rf "$XVFB_RUNTIME_DIR"
        XVFB_RUNTIME_DIR=
    fi
}
