#!/usr/bin/env bash
# Builds the sample tournament, installs the pinned tods-competition-factory outside the source tree and reads the
# sample's TODS export back with it.
#   tools/tods_check/run.sh [build dir, default build]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=${1:-build}
work=${TODS_CHECK_DIR:-/tmp/quorvelin_tods_check}
mkdir -p "$work/sample"
cp "$here/package.json" "$work/"
npm install --prefix "$work" --no-audit --no-fund --silent
cmake --build "$build" --target quorvelin_tods_sample -j2 >/dev/null
"$build/tools/quorvelin_tods_sample" "$work/sample" >/dev/null 2>&1
NODE_PATH="$work/node_modules" node "$here/check.cjs" "$work/sample/sample_tods.json" "$work/sample/sample.qvd"
