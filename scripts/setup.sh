#!/usr/bin/env bash
# Installs the Debian packages the project builds and tests with, and any named on the command
# line (scripts/apidoc.sh adds doxygen).
# Safe to run again: when everything is present it only checks and returns.
set -euo pipefail

packages=(
  build-essential cmake ninja-build ccache pkg-config clang-format
  clang libclang-rt-14-dev
  qtbase5-dev libqt5network5
  libprotobuf-dev protobuf-compiler
  libspdlog-dev libfmt-dev
  libavcodec-dev libavutil-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  # the reference viewer (examples/viewer) and its test under a virtual X server
  libswscale-dev xvfb xauth imagemagick
  "$@"
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "setup: installing ${missing[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
