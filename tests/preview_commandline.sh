#!/usr/bin/env bash
# The preview program's command line, as a shell script uses it: output, complaints, exit status.
# Not here: its window (tst_preview_program.cpp).
# preview_commandline.sh PROGRAM SAMPLES MANUAL
set -u
program=$1 samples=$2 manual=$3
room=$(mktemp -d)
trap 'rm -rf "$room"' EXIT
export XDG_CONFIG_HOME=$room LC_ALL=C.UTF-8
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
failures=0

fail() {
    printf 'FAIL: %s\n' "$1"
    sed 's/^/    out: /' "$room/out"
    sed 's/^/    err: /' "$room/err"
    failures=$((failures + 1))
}

run() { # STATUS ARGUMENT...
    local expected=$1 status
    shift
    timeout 60 "$program" --audio-output null "$@" >"$room/out" 2>"$room/err" </dev/null
    status=$?
    ((status == expected)) || fail "status $status and not $expected: $*"
}

says() { grep -qF -- "$1" "$room/out" || fail "standard output does not say: $1"; }
complains() { grep -qF -- "$1" "$room/err" || fail "standard error does not say: $1"; }
silent() { [[ ! -s $room/out ]] || fail "there is something on standard output"; }

# --- answers, without a display
run 0 --help
for option in settings json mode depth hide-mode start audio-output language screenshot at export \
    export-lossless no-window; do
    says "--$option"
    sed 's/Fl Fl /--/g' "$manual" | grep -qF -- "--$option" || fail "the manual lacks --$option"
done
run 0 --version
grep -qx 'playwidget-preview [0-9.]*' "$room/out" || fail "the version is not one line"
"$program" --language de --version >"$room/out" 2>&1 && german=1 || german=0  # built without it
if ((german)); then
    run 0 --help --language de
    says "Rückgabe: 0 OK"
fi

# --- wrong usage
run 2 --no-such-option
complains "no-such-option"
run 2 --mode blue
complains 'there is no 3D mode "blue"'
run 2 --hide-mode red
run 2 --mode red-cyan --hide-mode red-cyan
for depth in 0.31 -0.31 nan inf 0,1 "" x; do
    run 2 --depth "$depth"
    complains "is not a number from -0.3 to 0.3"
done
run 2 --at -1
run 2 --screenshot "$room/a.png"
complains "name the film"
run 2 --settings ""
run 2 --no-window --export "$room/films"
complains "needs --settings and --export"
run 2 --no-window --export "$room/films" --settings "$room/none.json" "$samples/depth.mkv"
complains "exports the films of the settings, and takes no others"
run 2 --screenshot "$room/none.png" --export "$room/films" "$samples/depth.mkv"
complains "takes a picture and exports nothing"
run 2 --language xx
complains 'there are no texts in "xx", but in: en'
silent

# --- a locale with a decimal comma reads a point all the same
LC_ALL=de_DE.UTF-8 run 2 --depth 0,1
((!german)) || complains "„0,1“ ist keine Zahl"
LC_ALL=de_DE.UTF-8 run 0 --depth -0.012 --mode red-cyan --screenshot "$room/de.png" \
    "$samples/depth.mkv"

# --- no display to open a window on
run 3 "$samples/depth.mkv"
complains "there is no display"
DISPLAY='' WAYLAND_DISPLAY='' QT_QPA_PLATFORM='' run 3 "$samples/depth.mkv"
complains "there is no display"

# --- settings that cannot be read stay as they are
printf '[{"path": "a.mkv"' >"$room/broken.json"
run 3 --settings "$room/broken.json" --screenshot "$room/a.png"
complains "broken.json cannot be read as settings: line 1: "
[[ $(<"$room/broken.json") == '[{"path": "a.mkv"' ]] || fail "the broken settings were touched"
run 3 --settings "$room/no/such/folder.json" --screenshot "$room/a.png"

# --- settings that are missing, which only a window can make
run 3 --no-window --export "$room/films" --settings "$room/none.json"
complains "none.json cannot be read as settings: No such file or directory"
run 3 --settings "$room/none.json" --screenshot "$room/a.png" "$samples/depth.mkv"
complains "none.json cannot be read as settings: No such file or directory"
[[ ! -e $room/films && ! -e $room/none.json ]] || fail "missing settings leave something"

# --- a picture
run 0 --screenshot "$room/a.png" --at 3000 --mode red-cyan --depth -0.012 "$samples/depth.mkv"
run 0 --screenshot "$room/b.png" --at 3000 --mode red-cyan --depth -0.012 "$samples/depth.mkv"
cmp -s "$room/a.png" "$room/b.png" || fail "two pictures of the same place differ"
printf '[{"path": "%s", "mode": "red-cyan", "depth": -0.012}]' "$samples/depth.mkv" \
    >"$room/settings.json"
run 0 --screenshot "$room/c.png" --at 3000 --settings "$room/settings.json"
cmp -s "$room/a.png" "$room/c.png" || fail "the picture does not follow the settings"
run 0 --screenshot "$room/d.png" --at 3000 "$samples/depth.mkv"
cmp -s "$room/a.png" "$room/d.png" && fail "the picture is the same without 3D"
run 0 --screenshot "$room/end.png" --at 4000000000 "$samples/depth.mkv"
run 0 --screenshot "$room/tone.png" "$samples/tone.ogg"
run 3 --screenshot "$room/e.png" /no/such/film.mkv
complains "/no/such/film.mkv: The file does not exist"
mkdir "$room/empty"
run 3 --screenshot "$room/e.png" "$room/empty"
complains "No films in $room/empty"
printf '[]' >"$room/no_films.json"
run 3 --screenshot "$room/e.png" --settings "$room/no_films.json"
complains "there is no film to take the picture of"
run 3 --screenshot "$room/e.strange" "$samples/depth.mkv"
complains "there is no image format"
run 3 --screenshot "$room/no/such/e.png" "$samples/depth.mkv"
complains "cannot be written"
(ulimit -f 1; run 3 --screenshot "$room/full.png" "$samples/depth.mkv"; exit "$failures") \
    || failures=$((failures + 1))
[[ ! -e $room/full.png ]] || fail "a full disk leaves half a picture"

# --- an export whose files nobody can be told of
"$program" --no-window --settings "$room/settings.json" --export "$room" >/dev/full 2>"$room/err"
(($? == 3)) || fail "an export succeeds that could not tell what it wrote"
complains "the output could not be written"

printf '%s failures\n' "$failures"
exit $((failures > 0))
