# Shell functions for ./run, ./test and the scripts in this folder. Source it from bash scripts that use
# set -euo pipefail.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
started=()          # IDs of the processes to end, in the order of their start

say() { printf '== %s\n' "$*"; }

die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# wait_for <seconds> <command>...: polls until the command succeeds. Only seconds in which the machine is
# idle count: on a busy machine, everything takes longer. Fails after <seconds> idle seconds, or after an
# hour.
wait_for() {
    local per_second most=$(($1 * $(getconf CLK_TCK))) idle=0 start=$SECONDS last now step
    per_second=$(getconf CLK_TCK)
    last=$(idle_time)
    shift
    while ! "$@" >/dev/null 2>&1; do
        sleep 0.1
        now=$(idle_time)
        step=$((now - last)) last=$now
        # Count at most 0.2 s for each poll: this script may have been stopped since the last one.
        idle=$((idle + (step < per_second / 5 ? step : per_second / 5)))
        [ "$idle" -lt "$most" ] && [ $((SECONDS - start)) -lt 3600 ] || return 1
    done
}

# idle_time: prints how long the processors have been idle since the machine started, on average, in clock
# ticks.
idle_time() {
    local idle
    read -r _ _ _ _ idle _ </proc/stat
    printf '%s\n' "$((idle / $(getconf _NPROCESSORS_ONLN)))"
}

# end_started: ends the processes in "started", the last one first.
end_started() {
    local index
    for ((index = ${#started[@]} - 1; index >= 0; index--)); do
        kill "${started[index]}" 2>/dev/null || true
        wait "${started[index]}" 2>/dev/null || true
    done
    started=()
}

# project_version: prints the version of the program, such as 1.0.0.
project_version() {
    local version
    version=$(sed -n 's/^project(Jotwright VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
    [ -n "$version" ] || die "no version in CMakeLists.txt"
    printf '%s\n' "$version"
}

# product <build folder> <name>: prints what the program in a build folder was built with: version,
# web_site, support, downloads, compiler.
product() {
    local value
    value=$(sed -n "s/^$2=//p" "$1/product.txt")
    [ -n "$value" ] || die "no $2 in $1/product.txt: build the program again"
    printf '%s\n' "$value"
}

# build <preset> [target...]: configures and builds a preset of CMakePresets.json.
build() {
    local preset=$1
    shift
    cd "$root" || die "no folder $root"
    say "Configuring $preset"
    cmake --preset "$preset" || return
    say "Building $preset"
    cmake --build --preset "$preset" --parallel "$(nproc)" ${1:+--target "$@"}
}

# without_passed_tests: copies a log of ctest and GoogleTest, without the output of tests that passed. The
# output of a test that did not end is kept.
without_passed_tests() {
    awk '{sub(/\r$/, "")}
        /^\[ RUN / {held = $0; next}
        held != "" && /^\[       OK / {held = ""; next}
        held != "" {held = held "\n" $0; if ($0 ~ /^\[  FAILED/) {print held; held = ""}; next}
        !/^\[-----|^$/
        END {if (held != "") print held}'
}

# start_display <folder for logs> [<width>x<height>]: starts an X server on a free display number, and a
# window manager: without one, each closing window stalls Wine for two seconds. Sets DISPLAY and adds
# both processes to "started". setsid keeps them alive after Ctrl+C and after the end of the script.
# -noreset: without it, the server drops connections that are being opened when its last client leaves,
# and the window manager ends with "Failed to open the display".
start_display() {
    local number="$1/display-number"
    rm -f "$number"
    setsid Xvfb -displayfd 3 -screen 0 "${2:-1280x1024}x24" -dpi 96 -nolisten tcp -noreset \
        3>"$number" >"$1/xvfb.log" 2>&1 </dev/null &
    started+=("$!")
    wait_for 60 test -s "$number" || die "Xvfb did not start, see $1/xvfb.log"
    DISPLAY=":$(tr -d '[:space:]' <"$number")"
    export DISPLAY
    start_window_manager "$1"
    wait_for 60 window_manager_is_up "$1" ||
        die "openbox did not start, see $1/openbox.log"
}

# start_window_manager <folder>: starts the window manager and sets "window_manager" to its process ID. The
# animation of minimised windows is off: it moves the window itself, so a test could read a place on the way.
start_window_manager() {
    sed 's,<animateIconify>yes<,<animateIconify>no<,' /etc/xdg/openbox/rc.xml >"$1/openbox.xml"
    setsid openbox --sm-disable --config-file "$1/openbox.xml" >>"$1/openbox.log" 2>&1 </dev/null &
    window_manager=$!
    started+=("$window_manager")
}

# window_manager_is_up <folder>: starts the window manager again if it has ended.
window_manager_is_up() {
    kill -0 "$window_manager" 2>/dev/null || start_window_manager "$1"
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'
}

# start_sound <folder>: starts a separate sound server with one silent device, "cap". Sets PULSE_SERVER,
# by which programs find it. The small latency keeps the times in a recording right. Uses the installed
# pulseaudio, or else the one that install-packages has unpacked.
start_sound() {
    local own=$root/build/pulseaudio/usr server=(pulseaudio) library modules
    if ! command -v pulseaudio >/dev/null; then
        [ -x "$own/bin/pulseaudio" ] || die "pulseaudio is missing (scripts/install-packages test)"
        library=$(find "$own/lib" -name 'libpulsecore-*.so' -printf '%h\n' -quit)
        modules=$(find "$own/lib" -type d -path '*/pulse*/modules' -print -quit)
        # Modules link libraries that lie beside them.
        server=(env "LD_LIBRARY_PATH=$library:$modules" "$own/bin/pulseaudio"
            --dl-search-path "$modules")
    fi
    export PULSE_RUNTIME_PATH="$1/pulse" PULSE_STATE_PATH="$1/pulse" PULSE_LATENCY_MSEC=30
    export PULSE_SERVER="unix:$1/pulse/native"
    mkdir -p "$1/pulse"
    chmod 700 "$1/pulse"
    "${server[@]}" -n --daemonize=no --exit-idle-time=-1 --use-pid-file=no --disallow-exit \
        -L "module-null-sink sink_name=cap" \
        -L "module-native-protocol-unix socket=$1/pulse/native auth-anonymous=1" \
        >"$1/pulseaudio.log" 2>&1 </dev/null &
    started+=("$!")
    wait_for 60 pactl info || die "pulseaudio did not start, see $1/pulseaudio.log"
}

# wine_environment <prefix>: sets the variables that every Wine process needs. Starts no process.
wine_environment() {
    export WINEPREFIX="$1" WINEARCH=win64 WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree=;mshtml="
    export LC_ALL=C.UTF-8
}

# wine_choices: sets the variables that depend on Wine's version.
wine_choices() {
    local version
    version=$(wine --version | sed 's/^wine-\([0-9]*\).*/\1/')
    # Since Wine 9, the PostScript driver spools pages in a format that only its own print processor
    # reads.
    JOTWRIGHT_PRINT_PROCESSOR=wineps
    [ "$version" -ge 9 ] || JOTWRIGHT_PRINT_PROCESSOR=winprint
    export JOTWRIGHT_PRINT_PROCESSOR
}

# make_prefix: makes the prefix WINEPREFIX, without a Wine server at the end.
make_prefix() {
    say "Making a Wine prefix in $WINEPREFIX (only once; takes some seconds)"
    mkdir -p "$(dirname "$WINEPREFIX")"
    # LC_ALL=C.UTF-8 has no country, so Wine uses the formats of the United States.
    # Wine waits only some seconds for the helpers that it starts, which is too short on a busy machine.
    local tries=1
    until wine wineboot --init >"$WINEPREFIX.log" 2>&1 </dev/null; do
        [ "$tries" -lt 10 ] || die "wineboot failed, see $WINEPREFIX.log"
        tries=$((tries + 1))
        wineserver -k || true
        wineserver -w || true
    done
    # A crash must end the program, not open a box that waits for a user.
    wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f \
        >/dev/null 2>&1 </dev/null || die "reg failed"
    wineserver -w
    wine --version >"$WINEPREFIX/.ready" 2>/dev/null
}

# is_ready <prefix>: whether the prefix was made by this version of Wine.
is_ready() { [ "$(cat "$1/.ready" 2>/dev/null)" = "$(wine --version 2>/dev/null)" ]; }

# copy_prefix <template>: makes the prefix WINEPREFIX as a copy of the template. Makes the template first if
# it does not exist. The system's files, 0.7 GB, are hard links to those of the template.
copy_prefix() {
    local system=drive_c/windows/system32
    mkdir -p "$(dirname "$1")"
    (
        flock 8
        if ! is_ready "$1"; then
            rm -rf "$1"
            WINEPREFIX=$1 make_prefix 8>&-
        fi
    ) 8>"$1.lock"
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    tar -C "$1" --exclude="$system" --exclude=.ready -cf - . | tar -C "$WINEPREFIX" -xf -
    cp -al "$1/$system" "$WINEPREFIX/$system" 2>/dev/null || cp -a "$1/$system" "$WINEPREFIX/${system%/*}"
    cp "$1/.ready" "$WINEPREFIX"
}

# prepare_wine: makes the prefix if there is none, and leaves the Wine server running. Needs DISPLAY: if
# a prefix is first used without a display, later programs hang on its broken desktop. If
# JOTWRIGHT_WINE_TEMPLATE is set, the prefix is a copy of the template with that path. A copy of an older Wine
# is replaced: Wine would update files that other prefixes use at the same time.
prepare_wine() {
    [ -n "${DISPLAY:-}" ] || die "Wine needs a display"
    if [ -n "${JOTWRIGHT_WINE_TEMPLATE:-}" ]; then
        is_ready "$WINEPREFIX" || copy_prefix "$JOTWRIGHT_WINE_TEMPLATE"
    elif [ ! -f "$WINEPREFIX/.ready" ]; then
        make_prefix
    fi
    # The server keeps running, so it must not hold this script's output. Status 2: a server is running.
    wineserver -p >/dev/null 2>&1 </dev/null || [ $? -eq 2 ] || die "the Wine server does not start"
    wine cmd /c exit >/dev/null 2>&1 </dev/null || die "Wine does not start"
}

# use_wine_desktop <width>x<height> <key>...: programs with these keys below HKCU\Software\Wine run on a
# Wine desktop of this size, with a task bar and a notification area in every version of Wine.
use_wine_desktop() {
    local size=$1 key
    shift
    for key in "$@"; do
        wine reg add "HKCU\\Software\\Wine\\$key" /v Desktop /d Driver /f >/dev/null 2>&1 9>&-
    done
    wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Driver /d "$size" /f >/dev/null 2>&1 9>&-
    wine reg add 'HKCU\Software\Wine\Explorer\Desktops\Driver' /v EnableShell /t REG_DWORD /d 1 \
        /f >/dev/null 2>&1 9>&-
}

# windows_path <path>: prints the absolute path in the form that Windows programs under Wine use.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# begin_wine_run <state folder> [<width>x<height>]: for a script that runs programs under Wine and keeps
# files only in the state folder. Waits until no other run uses the folder. Sets "state" to the folder's
# full path and "temp" to a folder that is deleted at the end, and starts a display. The script chooses
# the Wine prefix; all programs of the prefix end with the script. If the script fails, it says which
# command was the last one, and prints the end of $temp/wine.log; a picture of the display stays in the
# state folder.
#
# The lock is file descriptor 9. Started processes must not inherit it: close it with 9>&- for every
# process that may outlive its command line.
begin_wine_run() {
    mkdir -p "$1"
    state=$(cd "$1" && pwd)
    exec 9>"$state/lock"
    flock -w 3600 9 || die "another run has been using $state for an hour"
    temp=$(mktemp -d "${TMPDIR:-/tmp}/jotwright.XXXXXX")
    trap 'end_wine_run "$BASH_COMMAND"' EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
    unset DISPLAY WAYLAND_DISPLAY LD_PRELOAD
    start_display "$temp" "${2:-}" 9>&-
}

# end_wine_run <last command>
# shellcheck disable=SC2317  # called by the traps
end_wine_run() {
    local status=$?
    trap - EXIT INT TERM HUP
    if [ "$status" -ne 0 ]; then
        say "Ended with status $status, at: $1"
        tail -n 20 "$temp/wine.log" 2>/dev/null || true
        if [ -n "${DISPLAY:-}" ] && timeout 20 import -window root "$state/failure.png" 2>/dev/null; then
            say "Picture of the display at the end: $state/failure.png"
        fi
    fi
    # End every program of this prefix, and wait until all have ended.
    if [ -n "${WINEPREFIX:-}" ] && [ -n "${DISPLAY:-}" ]; then
        wineserver -k 2>/dev/null || true
        wineserver -w 2>/dev/null || true
    fi
    end_started
    rm -rf "$temp"
    exit "$status"
}
