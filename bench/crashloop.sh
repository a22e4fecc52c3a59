#!/usr/bin/env bash
# The long crash run: tills killed with kill -9 at random moments of a mixed load, the
# venue's invariants checked after every kill. ./test runs the same for 15 seconds.
#   bench/crashloop.sh [SECONDS] [sqlite|pg]      (pg needs SINGBOX_TEST_PG)
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-600}"
backend="${2:-sqlite}"
scripts/build.sh >/dev/null
SINGBOX_CRASH_SECONDS="$seconds" SINGBOX_TEST_BACKEND="$backend" QT_QPA_PLATFORM=offscreen \
  QTEST_FUNCTION_TIMEOUT=$(( (seconds + 120) * 1000 )) build/tests/test_races crash_loop
