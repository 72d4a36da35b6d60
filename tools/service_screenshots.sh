#!/usr/bin/env bash
# Pictures of the local online service's enter page and entries page as a browser shows them, for notes on
# the service's look. Starts quorvelin-service on loopback with a few events and players, then lets headless
# Chromium take each page. Run by hand, not in CI:
#   tools/service_screenshots.sh [build dir] [output dir]
set -euo pipefail

build=${1:-build}
out=${2:-screenshots}
service=$build/bin/quorvelin-service
chromium=${CHROMIUM:-/usr/bin/chromium}

if [[ ! -x $chromium ]]; then
    echo "chromium not found at $chromium: no screenshots taken"
    exit 0
fi
if [[ ! -x $service ]]; then
    echo "no $service: build it first" >&2
    exit 1
fi
mkdir -p "$out"

work=$(mktemp -d)
service_pid=
cleanup() {
    [[ -n $service_pid ]] && kill "$service_pid" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

"$service" --port 0 --data "$work/service.db" --log "$work/requests.log" --add-account club7:pw1 >"$work/out.txt" &
service_pid=$!
for _ in $(seq 50); do
    grep -q listening "$work/out.txt" 2>/dev/null && break
    sleep 0.1
done
base=$(grep -o 'http://127.0.0.1:[0-9]*/qv' "$work/out.txt")
echo "service at $base"

account="custid=club7&password=pw1"
get() { curl -s "$base?$1" >/dev/null; }

# The director's side: the tournament's name, three events, entries open.
get "idx=update_tournament&$account&tournament=Spring%20Open&dates=1-3%20May&currencycode=eur"
get "idx=uploadevents_append_execute_text&$account&cnt=1&data=1,mens%20singles,m,p,10,singles,^2,womens%20singles,f,p,10,singles,^3,mixed%20doubles,x,p,12,doubles,^"
get "idx=uploadevents_parse_execute_text&$account"
get "idx=set_state&tp=openentries_withdrawals&$account"

# Players enter through the form, as a browser sends it.
enter() { get "idx=enter2_submit&custid=club7&$1"; }
enter "fname=Al&sname=West&email=al%40club.org&sex=m&e1=1"
enter "fname=Cy&sname=Stone&email=cy%40club.org&sex=m&e1=1&e3=1&pf3=Di&ps3=Vale&px3=f"
enter "fname=Di&sname=Vale&email=di%40club.org&sex=f&e2=1"
enter "fname=Eva&sname=Moor&email=eva%40club.org&sex=f&e2=1&e3=1&pr3=1"

shoot() {
    local name=$1 url=$2 profile
    profile=$(mktemp -d)
    "$chromium" --headless --no-sandbox --disable-gpu --disable-quic --no-first-run --disable-background-networking \
        --disable-component-update --disable-sync --user-data-dir="$profile" --window-size=1000,900 \
        --screenshot="$out/$name" "$url" >/dev/null 2>&1
    rm -rf "$profile"
    echo "$out/$name"
}
shoot service_enter_page.png "$base?idx=enter1_enterpage&custid=club7"
shoot service_entries_page.png "$base?idx=entries&custid=club7"
