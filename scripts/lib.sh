# Shell functions shared by ./run, ./test and the scripts beside this file. To be sourced by bash
# scripts that have set -euo pipefail.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
started=()          # processes to end, in the order in which they were started

say() { printf '== %s\n' "$*"; }

die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# wait_for <seconds> <command>...: polls until the command succeeds. Fails when the machine has had
# nothing else to do for so many seconds: on a busy machine anything may take longer. An hour ends
# it in any case.
wait_for() {
    local per_second most=$(($1 * $(getconf CLK_TCK))) idle=0 start=$SECONDS last now step
    per_second=$(getconf CLK_TCK)
    last=$(idle_time)
    shift
    while ! "$@" >/dev/null 2>&1; do
        sleep 0.1
        now=$(idle_time)
        step=$((now - last)) last=$now
        # A script that was stopped has not looked meanwhile.
        idle=$((idle + (step < per_second / 5 ? step : per_second / 5)))
        [ "$idle" -lt "$most" ] && [ $((SECONDS - start)) -lt 3600 ] || return 1
    done
}

# For how long a processor has had nothing to do since the machine's start, on average, in clock ticks.
idle_time() {
    local idle
    read -r _ _ _ _ idle _ </proc/stat
    printf '%s\n' "$((idle / $(getconf _NPROCESSORS_ONLN)))"
}

# Ends what this script started, last first.
end_started() {
    local index
    for ((index = ${#started[@]} - 1; index >= 0; index--)); do
        kill "${started[index]}" 2>/dev/null || true
        wait "${started[index]}" 2>/dev/null || true
    done
    started=()
}

# The version of the program, such as 1.0.0.
project_version() {
    local version
    version=$(sed -n 's/^project(Jotwright VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
    [ -n "$version" ] || die "no version in CMakeLists.txt"
    printf '%s\n' "$version"
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

# start_display <folder for logs> [<width>x<height>]: an X server on a free display number with a window manager
# (without one, each window that closes stalls Wine for two seconds). Sets DISPLAY and adds both to
# the array "started". setsid: they outlive a Ctrl+C and the script that leaves them behind.
# -noreset: when its last client leaves, the server would drop the connections that are being opened,
# and the window manager would end with "Failed to open the display".
start_display() {
    local number="$1/display-number"
    rm -f "$number"
    setsid Xvfb -displayfd 3 -screen 0 "${2:-1280x1024}x24" -dpi 96 -nolisten tcp -noreset \
        3>"$number" >"$1/xvfb.log" 2>&1 </dev/null &
    started+=("$!")
    wait_for 60 test -s "$number" || die "Xvfb did not start, see $1/xvfb.log"
    DISPLAY=":$(tr -d '[:space:]' <"$number")"
    export DISPLAY
    start_window_manager "$1/openbox.log"
    wait_for 60 window_manager_is_up "$1/openbox.log" ||
        die "openbox did not start, see $1/openbox.log"
}

# start_window_manager <log>: sets "window_manager", its process.
start_window_manager() {
    setsid openbox --sm-disable >>"$1" 2>&1 </dev/null &
    window_manager=$!
    started+=("$window_manager")
}

# window_manager_is_up <log>: starts it again if it has ended meanwhile.
window_manager_is_up() {
    kill -0 "$window_manager" 2>/dev/null || start_window_manager "$1"
    xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'
}

# start_sound <folder>: a sound server of its own with one silent device, "cap"; programs find it
# through PULSE_SERVER. The small latency keeps the times of a recording right. The server is the
# machine's, or else what install-packages has unpacked.
start_sound() {
    local own=$root/build/pulseaudio/usr server=(pulseaudio) library
    if ! command -v pulseaudio >/dev/null; then
        [ -x "$own/bin/pulseaudio" ] || die "pulseaudio is missing (scripts/install-packages test)"
        library=$(find "$own/lib" -name 'libpulsecore-*.so' -printf '%h\n' -quit)
        server=(env "LD_LIBRARY_PATH=$library" "$own/bin/pulseaudio"
            --dl-search-path "$(find "$own/lib" -type d -path '*/pulse*/modules' -print -quit)")
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

# wine_environment <prefix>: what every Wine process needs; no process is started.
wine_environment() {
    export WINEPREFIX="$1" WINEARCH=win64 WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree=;mshtml="
    export LC_ALL=C.UTF-8
}

# wine_choices: all that depends on Wine's version.
wine_choices() {
    local version
    version=$(wine --version | sed 's/^wine-\([0-9]*\).*/\1/')
    # Since 9 the driver for PostScript spools pages in a form that only its own processor reads.
    JOTWRIGHT_PRINT_PROCESSOR=wineps
    [ "$version" -ge 9 ] || JOTWRIGHT_PRINT_PROCESSOR=winprint
    export JOTWRIGHT_PRINT_PROCESSOR
}

# prepare_wine: makes the prefix at the first time and leaves its server running. Needs DISPLAY: a
# prefix that is first used without one keeps a dead desktop that hangs later programs.
prepare_wine() {
    [ -n "${DISPLAY:-}" ] || die "Wine needs a display"
    mkdir -p "$(dirname "$WINEPREFIX")"
    if [ ! -f "$WINEPREFIX/.ready" ]; then
        say "Making a Wine prefix in $WINEPREFIX (once, some seconds)"
        # LC_ALL=C.UTF-8 has no country: formats are those of the United States.
        # Wine gives the helpers that it starts some seconds only, too few on a busy machine.
        local tries=1
        until wine wineboot --init >"$WINEPREFIX.log" 2>&1 </dev/null; do
            [ "$tries" -lt 10 ] || die "wineboot failed, see $WINEPREFIX.log"
            tries=$((tries + 1))
            wineserver -k || true
            wineserver -w || true
        done
        # A crash is to end the program, not to open a box that waits for somebody.
        wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f \
            >/dev/null 2>&1 </dev/null || die "reg failed"
        wineserver -w
        touch "$WINEPREFIX/.ready"
    fi
    wineserver -p >/dev/null 2>&1 </dev/null   # it stays: it must not hold this script's output
    wine cmd /c exit >/dev/null 2>&1 </dev/null || die "Wine does not start"
}

# windows_path <path>: an absolute path as Windows programs under Wine name it.
windows_path() { printf 'Z:%s' "${1//\//\\}"; }

# begin_wine_run <state folder> [<width>x<height>]: for a script that runs programs under Wine and leaves nothing
# behind but what is in that folder; one run at a time uses it. Sets "state", the folder's full
# path, and "temp", a folder that is erased at the end, and starts a display. The Wine prefix is the
# script's to name; its programs end with the script. When the script fails, a picture of the
# display is left in the state folder.
#
# The lock is descriptor 9. It must not live on in anything that is started: hence 9>&- with every
# process that may outlive a line.
begin_wine_run() {
    mkdir -p "$1"
    state=$(cd "$1" && pwd)
    exec 9>"$state/lock"
    flock -w 3600 9 || die "another run has kept $state for an hour"
    temp=$(mktemp -d "${TMPDIR:-/tmp}/jotwright.XXXXXX")
    trap end_wine_run EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM HUP
    unset DISPLAY WAYLAND_DISPLAY LD_PRELOAD
    start_display "$temp" "${2:-}" 9>&-
}

# shellcheck disable=SC2317  # called by the traps
end_wine_run() {
    local status=$?
    trap - EXIT INT TERM HUP
    if [ "$status" -ne 0 ] && [ -n "${DISPLAY:-}" ]; then
        if timeout 20 import -window root "$state/failure.png" 2>/dev/null; then
            say "The display at the end: $state/failure.png"
        fi
    fi
    # Ends every program of this prefix, and waits until all have gone.
    if [ -n "${WINEPREFIX:-}" ] && [ -n "${DISPLAY:-}" ]; then
        wineserver -k 2>/dev/null || true
        wineserver -w 2>/dev/null || true
    fi
    end_started
    rm -rf "$temp"
    exit "$status"
}
