#!/usr/bin/env bash
# Installs what is missing, builds, and starts Quorvelin.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
scripts/build.sh
exec build/bin/quorvelin
