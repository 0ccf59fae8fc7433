# Sourced by the scripts that drive Tovarin on a private X server.
# start_xvfb sets DISPLAY and XVFB_PID; stop_xvfb ends that server.

# Starts Xvfb on a free display. The numbers start high and vary with the
# process, away from :0 and the like that other programs assume; -noreset
# keeps a stray client's disconnect from resetting the server under us.
start_xvfb() {
    local geometry=${1:-1280x1024x24}
    local number_file display attempt tries
    number_file=$(mktemp)
    display=$((100 + $$ % 400))
    for ((attempt = 0; attempt < 20; attempt++, display++)); do
        [ -e "/tmp/.X$display-lock" ] && continue
        : >"$number_file"
        Xvfb ":$display" -displayfd 3 -noreset -nolisten tcp -screen 0 "$geometry" \
            3>"$number_file" 2>/dev/null &
        XVFB_PID=$!
        # Xvfb writes the display number once it accepts clients, or dies
        # when another server took the display first.
        tries=0
        until grep -q '^[0-9]' "$number_file"; do
            kill -0 "$XVFB_PID" 2>/dev/null || break
            [ $tries -lt 200 ] || { kill "$XVFB_PID"; break; }
            tries=$((tries + 1))
            sleep 0.05
        done
        if grep -q '^[0-9]' "$number_file"; then
            export DISPLAY=":$display"
            rm -f "$number_file"
            # Qt wants a private runtime folder and complains on every start without one.
            if [ -z "${XDG_RUNTIME_DIR:-}" ]; then
                XDG_RUNTIME_DIR=$(mktemp -d)
                XVFB_RUNTIME_DIR=$XDG_RUNTIME_DIR
                export XDG_RUNTIME_DIR
            fi
            return 0
        fi
        wait "$XVFB_PID" 2>/dev/null || true
    done
    XVFB_PID=
    rm -f "$number_file"
    echo "error: Xvfb did not start" >&2
    return 1
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
