#!/usr/bin/env bash
# Installs the Debian 12 packages Quorvelin needs to build, run and test, where they are missing.
set -euo pipefail
packages=(cmake ninja-build g++ pkg-config
    qt6-base-dev libqt6sql6-sqlite qt6-qpa-plugins libgl-dev
    libsqlite3-dev libcurl4-openssl-dev libgif-dev libcpp-httplib-dev libssl-dev nlohmann-json3-dev
    libgtest-dev libgmock-dev libbenchmark-dev python3-pyftpdlib python3-openssl
    fonts-dejavu-core fontconfig poppler-utils desktop-file-utils)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    echo "installing: ${missing[*]}"
    export DEBIAN_FRONTEND=noninteractive
    apt-get update -qq
    apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi
