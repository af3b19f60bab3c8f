# Sourced by bench/compare: measures note programs that Debian packages. Each run starts with a fresh
# home folder, as an unprivileged user.
# shellcheck shell=bash
# shellcheck disable=SC2017  # the rows of notes need whole numbers
# shellcheck disable=SC2154  # bench/compare sets temp and watcher

rivals=()

# notes_of_<program> <home> <count>: stores <count> notes in a home folder.
notes_of_xpad() {
    local note
    mkdir -p "$1/.config/xpad" "$1/.config/autostart"
    for ((note = 1; note <= $2; note++)); do
        note_text "$note" >"$1/.config/xpad/content-N$note"
        printf '%s\n' "width 200" "height 150" "x $((note % 10 * 120))" "y $((note / 10 * 90))" \
            "follow_font 1" "follow_color 0" "sticky 0" "hidden 0" "back rgb($((155 + note)),$((255 - note)),153)" \
            "text rgb(0,0,0)" "fontname Sans 9" "content content-N$note" >"$1/.config/xpad/info-N$note"
    done
}

notes_of_wmstickynotes() {
    local note
    mkdir -p "$1/.wmstickynotes"
    for ((note = 1; note <= $2; note++)); do
        {
            echo "$((note % 10 * 120)),$((note / 10 * 90)),200,150,0,0,Yellow"
            note_text "$note"
        } >"$1/.wmstickynotes/$note"
    done
}

notes_of_tomboy-ng() {
    local note folder=$1/.local/share/tomboy-ng date=2026-11-20T10:00:00.0000000+00:00
    local site=http://beatniksoftware.com/tomboy
    mkdir -p "$folder" "$1/.config/tomboy-ng"
    for ((note = 1; note <= $2; note++)); do
        {
            echo '<?xml version="1.0" encoding="utf-8"?>'
            echo "<note version=\"0.3\" xmlns:link=\"$site/link\" xmlns:size=\"$site/size\" xmlns=\"$site\">"
            echo "<title>Note number $note</title><text xml:space=\"preserve\"><note-content version=\"0.1\">Note number $note"
            echo
            note_text "$note"
            echo "</note-content></text><last-change-date>$date</last-change-date>"
            echo "<last-metadata-change-date>$date</last-metadata-change-date><create-date>$date</create-date>"
            echo "<cursor-position>1</cursor-position><selection-bound-position>1</selection-bound-position>"
            echo "<width>300</width><height>200</height><x>$((note % 10 * 100 + 5))</x><y>$((note / 10 * 80 + 5))</y>"
            echo "<open-on-startup>True</open-on-startup></note>"
        } >"$folder/$(printf '%08X-AAAA-4AAA-8AAA-AAAAAAAAAAAA' "$note").note"
    done
    printf '%s\n' '[BasicSettings]' "NotesPath=$folder/" ShowSplash=false Autostart=false \
        ShowSearchAtStart=false ManyNotebooks=true 'UsualFont=Sans Serif' FixedFont=Monospace \
        FontSize=medium HelpLanguage=EN >"$1/.config/tomboy-ng/tomboy-ng.cfg"
}

# KAlarm's calendars can only be created in its own dialogs, so KAlarm is measured without an alarm.
notes_of_kalarm() { :; }

# windows_of <program>: prints the regular expression that matches the program's note windows.
windows_of() {
    case $1 in
        xpad) echo xpad ;;
        wmstickynotes) echo . ;;
        tomboy-ng) echo 'Note number' ;;
        kalarm) echo KAlarm ;;
    esac
}

# run_rival <program> <notes>: starts and ends the program once. The values are kept under
# <program>-<notes>-<name>.
run_rival() {
    local home=$temp/home name="$1-$2" unprivileged=() session other
    rm -rf "$home"
    mkdir -p "$home/.config" "$home/.local/share" "$home/.cache" "$home/run"
    chmod 700 "$home/run"
    "notes_of_$1" "$home" "$2"
    if [ "$(id -u)" -eq 0 ]; then
        chown -R 65534:65534 "$home"
        unprivileged=(setpriv --reuid 65534 --regid 65534 --clear-groups)
    fi
    cp "$watcher" "$temp/watch_windows"
    cat >"$home/session" <<SESSION
cd "$home"
"$temp/watch_windows" 60 '1:$(windows_of "$1")' '$2:$(windows_of "$1")' -- $1 >watched
touch ready
while [ ! -e stop ]; do sleep 0.2; done
SESSION
    env -i PATH="$PATH" DISPLAY="$DISPLAY" HOME="$home" XDG_CONFIG_HOME="$home/.config" \
        XDG_DATA_HOME="$home/.local/share" XDG_CACHE_HOME="$home/.cache" XDG_RUNTIME_DIR="$home/run" \
        NO_AT_BRIDGE=1 LANG=C.UTF-8 GSETTINGS_BACKEND=keyfile USER=nobody \
        "${unprivileged[@]}" dbus-run-session -- bash "$home/session" >/dev/null 2>&1 &
    session=$!
    wait_for 90 test -e "$home/ready" || die "$1 does not start"
    pid=$(awk '/^pid/ {print $2}' "$home/watched")
    keep "$name-first" "$(awk '/^1 / {print $2}' "$home/watched")"
    keep "$name-all" "$(awk '/^2 / {print $2}' "$home/watched")"
    if [ -n "$last" ]; then
        idle "$name"
        memory "$name"
    fi
    touch "$home/stop"
    wait "$session" || true
    kill "$pid" 2>/dev/null || true
    # End the helper processes that the program started; they have the same HOME.
    for other in /proc/[0-9]*; do
        # Ignore processes that have ended, and those whose environment cannot be read.
        if { tr '\0' '\n' <"$other/environ"; } 2>/dev/null | grep -qx "HOME=$home"; then
            kill "${other#/proc/}" 2>/dev/null || true
        fi
    done
    sleep 1
}

is_installed() { command -v "$1" >/dev/null && command -v dbus-run-session >/dev/null; }

measure_rivals() {
    local app count
    for app in xpad wmstickynotes tomboy-ng; do
        if ! is_installed "$app"; then
            say "Skipping $app: not installed"
            continue
        fi
        rivals+=("$app")
        for count in 1 100; do
            rival=$app notes=$count
            repeat one_rival
        done
    done
    # KAlarm needs 215 packages, including a database server. It is measured only if it is installed.
    if is_installed kalarm; then
        rival=kalarm notes=1
        repeat one_rival
    fi
}

one_rival() { run_rival "$rival" "$notes"; }
