# shellcheck shell=bash
# shellcheck disable=SC2154   # scripts/test-package sets the variables
# Part of scripts/test-package: the portable archive, as users extract and start it.
say "The portable archive, in a folder whose name has blanks and letters of two alphabets"
portable="$temp/Ännchens Notizen, Почта/Jotwright"
unzip -q "$name-portable.zip" -d "${portable%/*}"
start /unix "$portable/Jotwright.exe"
make_note Milk
leave
same "$(head -c 8 "$portable/Notes/Milk.txt")" '"Milk","' "the note beside the program"
cp -r "$portable/Notes" "$temp/notes-before"
unzip -q -o "$name-portable.zip" -d "${portable%/*}"
diff -r "$temp/notes-before" "$portable/Notes" || fail "extracting over the folder changed notes"
start /unix "$portable/Jotwright.exe"
expect "the note after extracting again" window Milk
leave
same "$(names_in "$portable/Notes")" Milk.txt "the contents of Notes"
diff -r "$temp/notes-before" "$portable/Notes" || fail "the second run changed notes"

# shellcheck source=scripts/package-tests/launcher.sh
. "$root/scripts/package-tests/launcher.sh"

say "Alone, as inside an archive, the program says what to do"
mkdir "$temp/alone"
cp "$root/build/windows/Jotwright.exe" "$temp/alone"
in_wine start /unix "$temp/alone/Jotwright.exe"
expect "the message" visible Jotwright
xdotool windowactivate "$(visible Jotwright)" key Return
expect "the end of the program" no_program
same "$(names_in "$temp/alone")" Jotwright.exe "the files beside the program"
