#!/usr/bin/env bash
# Installs the Debian 12 packages the build, the tests and the benchmarks need (as root),
# only those that are missing.
set -euo pipefail
packages=(build-essential cmake ninja-build ccache pkg-config clang libclang-rt-14-dev
          qt6-base-dev libsqlite3-dev libpq-dev postgresql unixodbc-dev tdsodbc odbc-postgresql
          libgtest-dev libbenchmark-dev python3 python3-pandas libshp-dev shapelib gdal-bin
          libzip-dev libfreexl-dev libxlsxwriter-dev mdbtools mdbtools-dev)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if ((${#missing[@]})); then
    echo "Installing: ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq
    apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
