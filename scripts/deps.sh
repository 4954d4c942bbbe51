#!/usr/bin/env bash
# Installs the Debian packages the build, the program and the tests need.
# Quick when everything is there: apt is only asked when a package is missing.
set -euo pipefail

packages=(
  cmake g++ make pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-5compat-dev qt6-tools-dev-tools
  libgl-dev uuid-dev libcrypt-dev
  oxygen-icon-theme
  xvfb xauth sqlite3 libsqlite3-dev
  libqt6printsupport6 poppler-utils
  dbus-daemon
  # the checks of an install: desktop entry, metadata, file type, manual pages
  desktop-file-utils appstream shared-mime-info xdg-utils libfile-mimeinfo-perl
  man-db groff-base
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done

if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo=""
  [ "$(id -u)" -eq 0 ] || sudo="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $sudo apt-get update -qq
  $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
