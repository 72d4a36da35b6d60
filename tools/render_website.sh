#!/usr/bin/env bash
# Renders the website of the fixed test tournament in headless Chromium: the index, a draw picture and a text
# draw, as PNG files in the folder given (default: build/website-shots). The site is the one the golden test
# makes; the local online service answers the index's online frame when it is built. Skips, with exit code 0,
# when Chromium is missing. Run from the repository after a build:  bash tools/render_website.sh [OUT]
set -euo pipefail

repo="$(cd "$(dirname "$0")/.." && pwd)"
out="${1:-$repo/build/website-shots}"
chromium=/usr/bin/chromium
if [[ ! -x "$chromium" ]]; then
    echo "render_website: $chromium not found, skipped"
    exit 0
fi
tests="$repo/build/bin/quorvelin_core_tests"
[[ -x "$tests" ]] || { echo "render_website: build first ($tests missing)" >&2; exit 1; }

work="$(mktemp -d)"
service_pid=""
cleanup() {
    [[ -n "$service_pid" ]] && kill "$service_pid" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

site="$work/site"
mkdir -p "$site" "$out"
QT_QPA_PLATFORM=offscreen QV_GOLDEN_OUT="$site" "$tests" \
    --gtest_filter='WebsiteMakeTest.EveryPageMatchesItsGoldenFile' >/dev/null || true
[[ -f "$site/index.htm" ]] || { echo "render_website: no site was made" >&2; exit 1; }

# The pages' online links point at the service on 127.0.0.1:8780 with the account club7.
service="$repo/build/bin/quorvelin-service"
if [[ -x "$service" ]]; then
    "$service" --port 8780 --data "$work/service.db" --add-account club7:pw1 >/dev/null 2>&1 &
    service_pid=$!
    sleep 1
fi

shot() {
    local page="$1" png="$2"
    "$chromium" --headless --no-sandbox --disable-gpu --disable-quic --no-first-run \
        --disable-background-networking --disable-component-update --disable-sync \
        --user-data-dir="$(mktemp -d -p "$work")" --screenshot="$out/$png" --window-size=1200,900 \
        "file://$site/$page" >/dev/null 2>&1
    echo "$out/$png"
}

shot index.htm website_index.png
shot draw_mensopensingles.gif website_draw_picture.png
shot textdraw_mensopensingles.htm website_text_draw.png
