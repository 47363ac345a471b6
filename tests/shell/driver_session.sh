# Sourced by the shell tests that run the script driver ($1) several times
# on one data folder, $app, inside a throw-away $work removed at exit.
driver=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
app=$work/app

fail() { echo "FAIL: $*" >&2; exit 1; }
expect() {  # expect WHAT ACTUAL EXPECTED
  [ "$2" = "$3" ] || fail "$1: expected [$3], got [$2]"
}
# run LINE...: one run of the driver on $app with these script lines.
run() { printf '%s\n' "$@" | "$driver" --appdir "$app"; }
