#!/usr/bin/env bash
# Words that ./dev does not know are refused before anything is installed, built or run.
# Not here: what the commands do. It tries them on a copy that has nothing to build.
# dev_commandline.sh TREE
set -u
room=$(mktemp -d)
trap 'rm -rf "$room"' EXIT
mkdir -p "$room/.ci" "$room/benchmarks" "$room/build"
cp "$1/dev" "$1/CMakePresets.json" "$room"
cp "$1/.ci/soak" "$room/.ci"
touch "$room/benchmarks/bench_known.cpp"
export DEV_SKIP_INSTALL=1
unformatted='int  main( ){}'
printf '%s' "$unformatted" >"$room/main.cpp"
failures=0

fail() {
    printf 'FAIL: %s\n' "$1"
    sed 's/^/    said: /' "$room/said"
    failures=$((failures + 1))
}

refuses() { # COMPLAINT WORD...
    local complaint=$1
    shift
    "$room/dev" "$@" >"$room/said" 2>&1 </dev/null && fail "it succeeds: ./dev $*"
    grep -qF -- "$complaint" "$room/said" || fail "it does not say \"$complaint\": ./dev $*"
    ! grep -qE '^(==|####) ' "$room/said" || fail "it began: ./dev $*"
}

refuses 'there is no command tset' tset
refuses 'no tests run under a preset named relase' test dev relase
refuses 'there is no test tst_overlya' test dev tst_overlya
refuses 'there is no preset named relase' build relase tst_overlay
for preset in $(sed -n 's/.*"configurePreset": "\([^"]*\)" }.*/\1/p' "$1/CMakePresets.json"); do
    refuses " $preset" build relase
done
refuses 'there are no packages for Qt 7' package 6 7
refuses 'there is no benchmark bench_knwon' bench bench_known bench_knwon
refuses 'there is no fuzzer named "call"' fuzz call
refuses 'there is no stage repeet' soak coverage repeet
refuses 'format takes --check or nothing, and not "--chek"' format --chek
refuses 'and not "--check --all"' format --check --all
[[ $(<"$room/main.cpp") == "$unformatted" ]] || fail "the sources were touched"
for command in docs coverage clean-room clean; do
    refuses "$command takes no words" "$command" dev
done
[[ -d $room/build ]] || fail "what was built is gone"

printf '%s failures\n' "$failures"
exit $((failures > 0))
