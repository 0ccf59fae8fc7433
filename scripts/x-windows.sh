# Sourced by the scripts that drive Tovarin with xdotool (tests, benchmarks, screenshots);
# the caller sets app_pid and defines fail MESSAGE.
step_timeout=${step_timeout:-15} # seconds for any one wait

# wait_for WHAT COMMAND...: repeats COMMAND until it prints something, and prints that.
wait_for() {
    local what=$1 deadline=$((SECONDS + step_timeout)) out
    shift
    until out=$("$@" 2>/dev/null) && [ -n "$out" ]; do
        [ $SECONDS -lt $deadline ] || fail "timed out waiting for $what"
        sleep 0.1
    done
    printf '%s\n' "$out"
}
# Visible top-level windows of the application, as "ID WIDTH HEIGHT NAME" lines.
app_windows() {
    for w in $(xdotool search --onlyvisible --pid "$app_pid" 2>/dev/null); do
        eval "$(xdotool getwindowgeometry --shell "$w")"
        echo "$w $WIDTH $HEIGHT $(xdotool getwindowname "$w")"
    done
}
window_sized() { app_windows | awk -v w="$1" -v h="$2" '$2 == w && $3 == h { print $1; exit }'; }
window_named() { app_windows | awk -v n="$1" '{ id = $1; $1 = $2 = $3 = ""; sub(/^ +/, ""); if ($0 == n) { print id; exit } }'; }
other_window() { app_windows | awk -v not="$1" '$1 != not { print $1; exit }'; }
window_gone() { xdotool search --onlyvisible --pid "$app_pid" 2>/dev/null | grep -qx "$1" || echo gone; }
# Without a window manager nobody hands out the keyboard focus: give it, again if it moves meanwhile.
focus() {
    local deadline=$((SECONDS + step_timeout))
    until xdotool windowfocus "$1" && [ "$(xdotool getwindowfocus -f)" = "$1" ]; do
        [ $SECONDS -lt $deadline ] || fail "cannot give window $1 the keyboard focus"
        sleep 0.05
    done
}
# WINDOW X Y, in window coordinates; no --sync, which waits 15 s when the pointer is already there.
click_at() { xdotool mousemove --window "$1" "$2" "$3" click 1; }
