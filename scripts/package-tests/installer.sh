# shellcheck shell=bash
# shellcheck disable=SC2154   # scripts/test-package sets the variables
# Part of scripts/test-package: installing, upgrading and uninstalling.
say "Installing an older version"
mkdir "$temp/older"
cp "$root/build/windows/product.txt" "$temp/older"
(cat "$root/build/windows/Jotwright.exe" && echo older) >"$temp/older/Jotwright.exe"
SOURCE_DATE_EPOCH=0 "$root/scripts/make-installer" "$temp/older" x64 0.9.0 "$temp/older-setup.exe" 9>&-
in_wine "$temp/older-setup.exe" /S || fail "the older installer: exit code $?"
cmp "$temp/older/Jotwright.exe" "$installed/Jotwright.exe" || fail "the installed program is not the older one"
(unzip -Z1 "$name-portable.zip" && echo Jotwright/Uninstall.exe) | sed 's/^Jotwright.//' |
    grep -vxE 'Read me.txt|JotwrightPortable.exe' | sort >"$temp/to-install"
same "$(names_in "$installed" | grep -vx Notes)" "$(cat "$temp/to-install")" "the installed files"
same "$(names_in "$installed/Notes")" "" "the new notes folder"
same "$(read_value "$uninstall_key" DisplayVersion)" 0.9.0 "the version in the list of programs"
same "$(winepath -u "$(read_value "$uninstall_key" InstallLocation)")" "$installed" "its folder"

same "$(winepath -u "$(in_wine reg query "$app_paths" /ve | tr -d '\r' | sed -n 's/.*REG_SZ *//p')")" \
    "$installed/Jotwright.exe" "the program's path"
for field in DisplayName Publisher Comments Contact HelpLink URLInfoAbout URLUpdateInfo UninstallString \
    QuietUninstallString InstallDate EstimatedSize VersionMajor VersionMinor DisplayIcon; do
    [ -n "$(read_value "$uninstall_key" "$field")" ] || fail "the list of programs shows no $field"
done
[ -e "$start_menu/$notes_folder" ] || fail "no notes folder in the Start menu"
[ ! -e "$startup/$shortcut" ] || fail "a silent installation made a start-up shortcut"

say "The Start-menu entry starts the program; the user makes notes, special alarms and settings"
start /unix "$start_menu/Jotwright.lnk"
make_note Groceries
leave
printf '"Zahnarzt Прага","%s",#2031-06-05#,#09:30:00#,4,14,"1",1,"yes"\r\n' \
    $'\xd0\x94\xd0\xb0\r\nJa' | sed $'1s/^/\xef\xbb\xbf/' >"$installed/Notes/Zahnarzt Прага.txt"
mkdir "$installed/SpecialAlarms"
for day in Monday Tuesday Wednesday Thursday Friday Saturday Sunday; do
    printf '"%s",#17:30:00#,"Pay the rent",0\r\n' "$day"
done >"$installed/SpecialAlarms/SpecialAlarms.txt"
write_setting Options DefaultColor 3
write_setting Config Alarm 'C:\Windows\Media\my own.wav'
user_data "$installed" >"$temp/user-data"
for kept in Groceries Zahnarzt SpecialAlarms.txt DefaultColor 'my own.wav'; do
    grep -q "$kept" "$temp/user-data" || fail "$kept is not in the user's data"
done

say "The prepared shortcut starts the program; an upgrade while it runs"
start /unix "$installed/$shortcut"
expect "a user's note" window 'Zahnarzt Прага'
in_wine "$name-setup.exe" /S || fail "the upgrade: exit code $?"
cmp "$root/build/windows/Jotwright.exe" "$installed/Jotwright.exe" || fail "the upgrade did not replace the program"
same "$(read_value "$uninstall_key" DisplayVersion)" "$version" "the version after the upgrade"
same "$(names_in "$installed" | grep -vE '^(Notes|SpecialAlarms)')" "$(cat "$temp/to-install")" \
    "the files after the upgrade"
expect "the new program's window" main_window
expect "a user's note in the new program" window 'Zahnarzt Прага'
leave
user_data "$installed" | diff "$temp/user-data" - || fail "the upgrade changed the user's data"

say "An upgrade and a downgrade while a file is in use change nothing"
(cd "$installed" && find . -type f -print0 | sort -z | xargs -0 sha256sum) >"$temp/installed-files"
for held in 'Alert chime.wav' 'Jotwright.exe' 'note.ico'; do
    hold "$installed/$held"
    code=0
    in_wine "$temp/older-setup.exe" /S || code=$?
    [ "$held" = Jotwright.exe ] && expected=3 || expected=4
    same "$code" "$expected" "the exit code while $held is in use"
    (cd "$installed" && find . -type f -print0 | sort -z | xargs -0 sha256sum) | diff "$temp/installed-files" - ||
        fail "a failed installation changed files"
    let_go
done
same "$(read_value "$uninstall_key" DisplayVersion)" "$version" "the version after failed downgrades"

say "A downgrade keeps the user's data, and so does the upgrade after it"
for setup in "$temp/older-setup.exe:0.9.0" "$name-setup.exe:$version"; do
    in_wine "${setup%:*}" /S || fail "installing ${setup##*:}: exit code $?"
    same "$(read_value "$uninstall_key" DisplayVersion)" "${setup##*:}" "the installed version"
    user_data "$installed" | diff "$temp/user-data" - || fail "installing ${setup##*:} changed the user's data"
done

say "Uninstalling keeps the user's data and the shortcuts of other copies"
mkdir -p "$startup" "$all_users"
cp "$installed/$shortcut" "$startup/"
unzip -p "$name-portable.zip" "Jotwright/$shortcut" >"$all_users/$shortcut"   # points to C:\Jotwright
in_wine "$installed/Uninstall.exe" /S || fail "uninstalling: exit code $?"
expect "the end of the uninstaller" test ! -e "$installed/Uninstall.exe"
expect "the end of the entry in the list of programs" no_key "$uninstall_key"
same "$(names_in "$installed" | grep -v /)" $'Notes\nSpecialAlarms' "the remaining files"
user_data "$installed" | diff "$temp/user-data" - || fail "uninstalling changed the user's data"
[ ! -e "$start_menu/Jotwright.lnk" ] || fail "the Start-menu entry still exists"
[ ! -e "$startup/$shortcut" ] || fail "the start-up shortcut still exists"
[ ! -e "$start_menu/$notes_folder" ] || fail "the notes folder is still in the Start menu"
no_key "$app_paths" || fail "the program's path is still registered"
[ -e "$all_users/$shortcut" ] || fail "another copy's start-up shortcut was deleted"
rm "$all_users/$shortcut"

# shellcheck source=scripts/package-tests/managers.sh
. "$root/scripts/package-tests/managers.sh"

say "Installing, upgrading and uninstalling with windows, using only the Enter key"
# press_enter_in <title>: presses Enter on each page and box with this title, until none is left.
press_enter_in() {
    expect "a window $1" visible "$1 ?"
    expect "the end of $1 by Enter alone" enter_closed "$1"
}
enter_closed() {
    local window
    for window in $(visible "$1 ?"); do
        # A key that is pressed after the window has closed would go to the program that it starts.
        ! activate "$window" || xdotool key Return
        sleep 0.3
    done
    ! visible "$1 ?" >/dev/null
}
in_wine "$name-setup.exe" &
started+=("$!")
press_enter_in 'Jotwright Setup'
expect "the program that the last page starts" main_window
[ -e "$startup/$shortcut" ] || fail "the ticked box of the last page made no start-up shortcut"
expect "a user's note after installing again" window 'Zahnarzt Прага'
first_process=$(xdotool getwindowpid "$(main_window)")
in_wine "$name-setup.exe" &
started+=("$!")
press_enter_in 'Jotwright Setup'
another_process() {
    local process
    process=$(xdotool getwindowpid "$(main_window)") && [ "$process" != "$first_process" ]
}
expect "a new copy of the program" another_process
leave
user_data "$installed" | diff "$temp/user-data" - || fail "installing again changed the user's data"
in_wine "$installed/Uninstall.exe" &
started+=("$!")
press_enter_in 'Jotwright Uninstall'
expect "the end of the uninstaller" test ! -e "$installed/Uninstall.exe"
user_data "$installed" | diff "$temp/user-data" - || fail "uninstalling by Enter alone erased data"

say "A shortcut for all users that cannot be deleted is reported"
[ ! -e "$startup/$shortcut" ] || fail "the start-up shortcut of the last page still exists"
in_wine "$name-setup.exe" /S /STARTUP || fail "installing with /STARTUP: exit code $?"
[ -e "$startup/$shortcut" ] || fail "/STARTUP made no start-up shortcut"
cp "$installed/$shortcut" "$all_users/"
hold "$all_users/$shortcut"
code=0
# With _?= the uninstaller does not copy itself, so that its exit code can be read.
in_wine "$installed/Uninstall.exe" /S "_?=$(read_value "$uninstall_key" InstallLocation)" || code=$?
same "$code" 5 "the exit code of the uninstaller"
let_go
rm "$all_users/$shortcut" "$installed/Uninstall.exe"
[ ! -e "$startup/$shortcut" ] || fail "the start-up shortcut of /STARTUP still exists"
user_data "$installed" | diff "$temp/user-data" - || fail "uninstalling changed the user's data"

say "Erasing everything with /ERASE, while the program runs"
in_wine "$name-setup.exe" /S || fail "installing: exit code $?"
echo mine >"$installed/Notes/drawing.svg"
# Files that the program put aside, because there was no Recycle Bin.
for put_aside in Notes/Milk.txt.replaced 'Notes/Milk.txt (2).damaged' \
    SpecialAlarms/SpecialAlarms.txt.replaced; do
    echo old >"$installed/$put_aside"
done
start /unix "$installed/Jotwright.exe"
in_wine "$installed/Uninstall.exe" /S /ERASE || fail "erasing: exit code $?"
expect "the end of the uninstaller" test ! -e "$installed/Uninstall.exe"
expect "the end of the settings" no_key "$settings"
no_program || fail "the program is still running"
same "$(names_in "$installed")" $'Notes\nNotes/drawing.svg' "the remaining files"
