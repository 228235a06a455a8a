#!/usr/bin/env bash
# Without any display the game says it failed to start and ends with status 0: no crash, no hang.
source "$(dirname "$0")/lib.sh"

e2e_require_tools
E2E_WORK=$(mktemp -d "/tmp/grevan-e2e-$E2E_NAME.XXXXXX")
cp -r "$GREVAN_DATA"/. "$E2E_WORK"/
unset DISPLAY
e2e_start
e2e_wait_for_exit 10
[ "$E2E_STATUS" -eq 0 ] || e2e_fail "exit status $E2E_STATUS"
expected=$'Starting Grevan ...\nFailed to set video mode 800*600*32\nFailed to set video mode 640*480*32\nFailed to start game.'
[ "$(e2e_stdout)" = "$expected" ] || e2e_fail "unexpected standard output"
e2e_pass
