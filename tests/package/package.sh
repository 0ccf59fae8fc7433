#!/usr/bin/env bash
# The Debian package made from this build: lintian, then unpacked into a
# scratch root, whose tovarin-report must give the build's report on the
# installed example, and whose tovarin must draw both installed pictures,
# compared pixel for pixel with the picture files.
#   package.sh BUILD_DIR PICTURE_DIR OUT_DIR
# Exit status 77 (skipped) only when a tool is missing.
set -euo pipefail
build=$(realpath "$1") pictures=$(realpath "$2") out=$(realpath "$3")
for tool in cpack dpkg-shlibdeps lintian nm desktop-file-validate appstreamcli Xvfb xdotool import; do
    command -v "$tool" >/dev/null || { echo "SKIP: no $tool (scripts/install-deps.sh installs it)"; exit 77; }
done
[ -f /usr/share/bash-completion/bash_completion ] || { echo "SKIP: no bash-completion"; exit 77; }
here=$(cd "$(dirname "$0")" && pwd)
source "$here/../../scripts/xvfb.sh"
source "$here/../../scripts/x-windows.sh"
scratch=$(mktemp -d) app_pid=
trap '[ -z "$app_pid" ] || kill -9 "$app_pid" 2>/dev/null; stop_xvfb; rm -rf "$scratch"' EXIT
fail() {
    echo "FAIL: $*" >&2
    [ -z "${DISPLAY:-}" ] || import -window root "$out/package-failure.png" || true
    exit 1
}

cpack --config "$build/CPackConfig.cmake" -B "$scratch" >"$out/cpack.log" || fail "cpack: see $out/cpack.log"
deb=$(echo "$scratch"/*.deb)
# Every tag fails, the pedantic ones (the binaries' hardening among them)
# included; the one override is checked below.
lintian --pedantic --display-info --fail-on error,warning,info,pedantic "$deb" || fail "lintian"
dpkg-deb -f "$deb" Depends | grep -q 'libqt6widgets6.*libc6\|libc6.*libqt6widgets6' ||
    fail "Depends not computed from the binaries: $(dpkg-deb -f "$deb" Depends)"
root=$scratch/root
dpkg -x "$deb" "$root"
# The override's premise: of the functions that fortifying checks, tovarin-report calls fread alone.
calls=$(nm -D --undefined-only "$root/usr/bin/tovarin-report" | sed 's/.* U //; s/@.*//' |
    grep -Fx -f <(grep -v -e '^#' -e '^$' /usr/share/lintian/data/binaries/hardened-functions) | tr '\n' ' ')
[ "$calls" = "fread " ] || fail "tovarin-report calls fortifiable functions: $calls"
share=$root/usr/share
[ -z "$(desktop-file-validate "$share/applications/tovarin.desktop")" ] || fail "desktop entry"
appstreamcli validate --no-net "$share"/metainfo/*.metainfo.xml || fail "metainfo"
completion=$(bash -c 'source /usr/share/bash-completion/bash_completion && source "$1" &&
    COMP_WORDS=(tovarin-report --format j) COMP_CWORD=2 COMP_LINE="tovarin-report --format j" &&
    COMP_POINT=${#COMP_LINE} && _tovarin_report && echo "${COMPREPLY[*]}"' - "$share/bash-completion/completions/tovarin-report")
[ "$completion" = json ] || fail "completion of --format j gave '$completion'"

example=$share/doc/tovarin/examples/worked-example.txt
"$root/usr/bin/tovarin-report" 3 "$example" >"$scratch/installed.txt" || fail "installed tovarin-report"
"$build/cli/tovarin-report" 3 "$example" >"$scratch/built.txt"
# Line 1 is the date and time, which may turn between the two runs.
diff <(tail -n +2 "$scratch/installed.txt") <(tail -n +2 "$scratch/built.txt") || fail "reports differ"

# WINDOW X Y PICTURE: prints "yes" when the window shows PICTURE at X,Y, every
# pixel within 1 % (blending over white may round one level off).
shows() {
    import -window "$1" -crop "$(identify -format %wx%h "$4")+$2+$3" +repage "$scratch/shot.png" &&
        [ "$(compare -metric AE -fuzz 1% "$scratch/shot.png" "$4" null: 2>&1)" = 0 ] && echo yes
}
convert "$pictures/Icon256.png" -background white -flatten "$scratch/icon.png"
# The banner from its left edge to the label that stands on it.
convert "$pictures/Tovarinbanner.png" -crop 398x90+3+0 +repage "$scratch/banner.png"
start_xvfb
unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_SCALE_FACTOR WAYLAND_DISPLAY
QT_QPA_PLATFORM=xcb "$root/usr/bin/tovarin" >"$out/package-tovarin.log" 2>&1 &
app_pid=$!
splash=$(wait_for "the splash" window_sized 450 350)
wait_for "Icon256.png on the splash" shows "$splash" 96 37 "$scratch/icon.png" >/dev/null
click_at "$splash" 225 175
wait_for "the splash to go" window_gone "$splash" >/dev/null
main=$(wait_for "the main window" other_window "$splash")
eval "$(xdotool getwindowgeometry --shell "$main")"
# The menu bar stands above the 700x600 content, in the same X window.
wait_for "Tovarinbanner.png on the main window" shows "$main" 0 $((HEIGHT - 600)) "$scratch/banner.png" >/dev/null
echo "package OK: $(basename "$deb")"
