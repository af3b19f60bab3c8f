# shellcheck shell=bash
# shellcheck disable=SC2154   # scripts/test-package sets the variables
# Part of scripts/test-package: JotwrightPortable.exe and the options of a portable copy.
say "The launcher of the portable copy"
options="$portable/Jotwright options.txt"
launch() {
    start /unix "$portable/JotwrightPortable.exe"
    expect "the note in the launched program" window Milk
}
write_setting Options DefaultColor 1
in_wine reg query "$settings" /s >"$temp/own-options"
printf 'Startup\\View Tips=1\r\nOptions\\DefaultColor=2\r\n' >"$options"
launch
same "$(read_value "$settings\\Options" DefaultColor)" 2 "the option that the program reads"
write_setting Options DefaultColor 3
in_wine start /unix "$portable/JotwrightPortable.exe"   # only says that the program is running
expect "the message of a second start" visible '  Jotwright Is Running'
xdotool windowactivate "$(visible '  Jotwright Is Running')" key Return
leave
in_wine reg query "$settings" /s | diff "$temp/own-options" - || fail "the user's own options are not back"
expect "the end of the launcher's key" no_key "$settings.Portable"
grep -q '^Options\\DefaultColor=3' "$options" || fail "the option is not in the file"
grep -aq "$(printf 'JotwrightPortable' | iconv -t UTF-16LE | tr -d '\0')" "$portable/$shortcut" ||
    fail "the shortcut does not start the launcher"

# Kill the launcher while the program runs, then end the program. The next start puts the options right.
launch
write_setting Options DefaultColor 4
in_wine taskkill /f /im JotwrightPortable.exe >/dev/null
leave
! in_wine reg query "$settings" /s | diff -q "$temp/own-options" - >/dev/null || fail "the launcher was not killed"
launch
same "$(read_value "$settings\\Options" DefaultColor)" 4 "the option after a kill"
leave
in_wine reg query "$settings" /s | diff "$temp/own-options" - || fail "the user's own options are not back"
grep -q '^Options\\DefaultColor=4' "$options" || fail "the option is not in the file after a kill"

# The end of the session.
launch
write_setting Options DefaultColor 5
in_wine wineboot --end-session >/dev/null || true
expect "the end of the program at the end of the session" no_program
in_wine reg query "$settings" /s | diff "$temp/own-options" - || fail "the session's end kept the options"
grep -q '^Options\\DefaultColor=5' "$options" || fail "the session's end lost an option"
