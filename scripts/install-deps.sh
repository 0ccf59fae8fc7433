#!/usr/bin/env bash
# Installs the Debian packages that building, running and testing need.
# Does nothing when everything is already there, so it is cheap to call from make.
set -euo pipefail

packages=(
  cmake ninja-build g++ make pkg-config
  qt6-base-dev qt6-qpa-plugins libqt6test6 libgl-dev
  libgtest-dev libgmock-dev libbenchmark-dev python3
  clang-14 clang-format libclang-rt-14-dev locales
  xvfb xauth xdotool x11-utils libx11-dev
  weston qt6-wayland dbus at-spi2-core python3-pyatspi python3-xlib
  imagemagick fonts-dejavu-core librsvg2-bin
  r-base-core python3-pandas pandoc poppler-utils lmodern
  texlive-latex-base texlive-latex-recommended texlive-latex-extra
  dpkg-dev file lintian desktop-file-utils appstream man-db bash-completion
  libc++-14-dev libc++abi-14-dev libfast-float-dev libfmt-dev googletest
  g++-mingw-w64-x86-64-posix wine wine64 emscripten node-acorn chromium
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
# Node may come with its own npm (a Node from outside Debian); Debian's is the fallback.
command -v npm >/dev/null || missing+=(npm)

# The web page's test drives Chromium with puppeteer-core and checks it with
# axe-core, both from npm at the versions package-lock.json locks;
# installed again only when the lock changes.
web_test=$(cd "$(dirname "$0")/.." && pwd) # the project, where package.json is
npm_modules() {
  if [ ! "$web_test/node_modules/.package-lock.json" -nt "$web_test/package-lock.json" ]; then
    (cd "$web_test" && npm ci --no-audit --no-fund --loglevel=error)
  fi
}

if [ ${#missing[@]} -eq 0 ]; then
  npm_modules
  exit 0
fi

echo "Installing: ${missing[*]}"
sudo=""
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "error: need root or sudo to install ${missing[*]}" >&2; exit 1; }
  sudo="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null
npm_modules
