#!/usr/bin/env bash
# Installs the Debian packages Velto needs to build, test and run.
# Idempotent and quiet when everything is already there.
# --ci adds LibreOffice's writer, which one test uses to read back the RTF Velto writes (without it
# that test is skipped), and the validators of the installed desktop files.
set -euo pipefail

PACKAGES=(
  build-essential cmake ninja-build ccache pkg-config
  clang libclang-rt-14-dev clang-format
  qt6-base-dev qt6-base-dev-tools qt6-multimedia-dev qt6-svg-dev qt6-translations-l10n libgl-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  nlohmann-json3-dev
  locales-all fonts-liberation
  xvfb xauth
  python3
  librsvg2-bin dpkg-dev
  poppler-utils libical-dev
)
if [ "${1:-}" = "--ci" ]; then
  PACKAGES+=(libreoffice-writer-nogui desktop-file-utils appstream libxml2-utils)
fi

missing=()
for p in "${PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing missing packages: ${missing[*]}"
SUDO=""
if [ "$(id -u)" -ne 0 ]; then
  SUDO="sudo"
fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
