# shellcheck shell=bash
# shellcheck disable=SC2154   # scripts/test-package sets the variables
# Part of scripts/test-package: the steps that the package managers take with their manifests.
say "Installing and upgrading as winget does"
# field <manifest> <path>...: prints a value of a manifest.
field() {
    python3 - "$@" <<'PYTHON'
import sys

import yaml

value = yaml.safe_load(open(sys.argv[1], encoding="utf-8"))   # JSON is YAML too
for key in sys.argv[2:]:
    value = value[int(key) if isinstance(value, list) else key]
print("\n".join(map(str, value)) if isinstance(value, list) else value)
PYTHON
}
user_data "$installed" >"$temp/user-data"
winget=$temp/packages/manifests/winget/Jotwright.Jotwright.installer.yaml
same "$(field "$winget" UpgradeBehavior)" install "winget's way to upgrade"
same "$(field "$winget" Installers 0 InstallerSha256 | tr '[:upper:]' '[:lower:]')" \
    "$(sha256sum <"$name-setup.exe" | cut -d ' ' -f 1)" "the checksum in winget's manifest"
same "$(field "$winget" Installers 0 InstallerUrl)" \
    "$(sed -n 's/^downloads=//p' "$root/build/windows/product.txt")${name##*/}-setup.exe" "the address for winget"
for setup in "$temp/older-setup.exe" "$name-setup.exe"; do
    in_wine "$setup" "$(field "$winget" InstallerSwitches Silent)" || fail "winget's installation: exit code $?"
    user_data "$installed" | diff "$temp/user-data" - || fail "winget's upgrade changed the user's data"
done
# winget finds the installed version by this key and this value.
product_key="${uninstall_key%\\*}\\$(field "$winget" ProductCode)"
same "$(read_value "$product_key" DisplayVersion)" "$(field "$winget" PackageVersion)" "the version that winget finds"
in_wine "$installed/Uninstall.exe" /S || fail "uninstalling: exit code $?"
expect "the end of the uninstaller" test ! -e "$installed/Uninstall.exe"

say "Installing and upgrading as Scoop does"
scoop=$temp/scoop
manifest=$temp/packages/manifests/scoop/jotwright.json
same "$(field "$manifest" architecture 64bit hash)" "$(sha256sum <"$name-portable.zip" | cut -d ' ' -f 1)" \
    "the checksum in Scoop's manifest"
# Scoop finds the next version by these fields. With this version they give this version's files.
now() { sed "s/\$version/$version/g"; }
same "$(field "$manifest" autoupdate architecture 64bit url | now)" \
    "$(field "$manifest" architecture 64bit url)" "the address of Scoop's update"
sums=$(field "$manifest" autoupdate hash url | now)
[ -e "$temp/packages/${sums##*/}" ] || fail "no checksums at $sums"
same "$(sed -nE "s/.*$(field "$manifest" checkver regex | sed 's/\\d/0-9/').*/\1/p" \
    <<<'<a href="Jotwright-9.8.7-windows-x64-portable.zip">')" 9.8.7 "the version that Scoop finds"
# scoop_install <version>: does as Scoop. Makes a folder for the version, moves each persisted folder out of
# it the first time, replaces it by a link, and makes "current" a link to the version. Both versions use the
# same archive.
scoop_install() {
    local new=$scoop/apps/jotwright/$1 item
    mkdir -p "$new" "$scoop/persist/jotwright"
    unzip -q "$name-portable.zip" -d "$new.extracted"
    mv "$new.extracted/$(field "$manifest" extract_dir)"/* "$new"
    for item in $(field "$manifest" persist); do
        if [ ! -e "$scoop/persist/jotwright/$item" ]; then
            if [ -e "$new/$item" ]; then
                mv "$new/$item" "$scoop/persist/jotwright"
            else
                mkdir "$scoop/persist/jotwright/$item"
            fi
        elif [ -e "$new/$item" ]; then
            mv "$new/$item" "$new/$item.original"
        fi
        ln -s "$scoop/persist/jotwright/$item" "$new/$item"
    done
    ln -sfn "$new" "$scoop/apps/jotwright/current"
}
scoop_start() { start /unix "$scoop/apps/jotwright/current/$(field "$manifest" shortcuts 0 0)"; }
scoop_install 0.9.0
scoop_start
make_note Bread
# Save the text before the program is closed: a request to close overtakes keys in the queue.
type_into "$(visible Bread)" 'two loaves'
xdotool key ctrl+s
expect "the note in the persisted folder" grep -q 'two loaves' "$scoop/persist/jotwright/Notes/Bread.txt"
leave
cp -r "$scoop/persist/jotwright" "$temp/persisted"
scoop_install "$(field "$manifest" version)"
rm -r "$scoop/apps/jotwright/0.9.0"
scoop_start
expect "the note after Scoop's upgrade" window Bread
leave
diff -r "$temp/persisted" "$scoop/persist/jotwright" || fail "Scoop's upgrade changed notes"
write_setting Options DefaultColor 3
