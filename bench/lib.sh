# Shell functions for bench/compare and bench/actions. Source it after scripts/lib.sh.
# shellcheck shell=bash
# shellcheck disable=SC2154  # scripts/lib.sh sets root

programs=$root/build/windows

# begin_bench: makes a folder for temporary files, "temp", and starts a display and Wine in a prefix of
# its own. Both end with the script.
begin_bench() {
    temp=$(mktemp -d)
    chmod 755 "$temp"
    trap end_bench EXIT
    start_display "$temp"
    wine_environment "$root/build/wine-bench/prefix"
    wineserver -k 2>/dev/null || true
    prepare_wine
    wine reg add 'HKCU\Software\Jotwright\Startup' /v 'View Tips' /d 1 /f >/dev/null 2>&1
}

# shellcheck disable=SC2317  # called by the trap
end_bench() {
    wineserver -k 2>/dev/null || true
    wineserver -w 2>/dev/null || true
    end_started
    rm -rf "$temp"
}

median() { sort -n | awk '{all[NR] = $1} END {print all[int((NR + 1) / 2)]}'; }
difference() { awk "BEGIN {printf \"%.1f\", $1 - $2}"; }

# keep <name> <value>: records the value of one run. value <name>: prints the median of the recorded values.
keep() { echo "$2" >>"$temp/values-$1"; }
value() { if [ -f "$temp/values-$1" ]; then median <"$temp/values-$1"; else echo -; fi; }

# note_text <number>: prints the text of a note, about two hundred bytes, the same for all programs.
note_text() {
    echo "Note $1: call the dentist, water the plants, collect the parcel at the post office."
    echo "Second line with some more words so that the note has about two hundred bytes of text. $1"
}

# lay_out <notes> [<bytes>]: makes an application folder with notes. If <bytes> are given, each note has at
# least as many bytes of text, in the same lines as the text box of bench/ActionsBaseline.cpp.
lay_out() {
    local note text line=$'Water the plants, and collect the parcel at the post office.\n'
    rm -rf "$temp/app"
    "$root/scripts/layout-app" "$temp/app" "$programs" >/dev/null
    mkdir "$temp/app/Notes"
    for ((note = 1; note <= $1; note++)); do
        text=$(note_text "$note")
        if [ $# -gt 1 ]; then
            text=
            while [ ${#text} -lt "$2" ]; do text+=$line; done
        fi
        printf '"Note %s","%s",#2099-05-14#,#09:30:00#,%s,12,"1",1,"yes"\r\n' \
            "$note" "${text//$'\n'/$'\r\n'}" $((note % 5 + 1)) >"$temp/app/Notes/Note $note.txt"
    done
}
