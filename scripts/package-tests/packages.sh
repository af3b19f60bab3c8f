# shellcheck shell=bash
# shellcheck disable=SC2154   # scripts/test-package sets the variables
# Part of scripts/test-package: the contents of the packages, which are reproducible.
say "Packages are reproducible"
! "$root/scripts/package" --no-build "$temp/release" 2>/dev/null 9>&- ||
    ! grep -q '^web_site=.*\.example' "$root/build/windows/product.txt" ||
    fail "scripts/package accepts placeholders"
mv "$temp/packages" "$temp/first"
sleep 1   # so that a stored current time would differ
(umask 077 && "$root/scripts/package" --draft --no-build "$temp/packages" 9>&- >/dev/null)
diff -r "$temp/first" "$temp/packages" || fail "two runs of scripts/package give different bytes"
grep -aq 'requestedExecutionLevel level="asInvoker"' "$name-setup.exe" ||
    fail "the installer requires more rights than those of the user"
for file in "$root/build/windows/Jotwright.exe" "$name-setup.exe"; do
    same "$(version_of "$file")" "$version.0" "the version in the properties of ${file##*/}"
done
# The manifest: the user's rights, scaling on newer and older systems, and support of Windows 7 to 11.
for declared in 'level="asInvoker"' '>PerMonitorV2, PerMonitor<' '>true/pm<' \
    35138b9a-5d96-4fbd-8e2d-a2440225f93a 4a2f28e3-53b9-4441-ba9c-d69d4a4a6e38 \
    1f676c76-80e1-4239-95bb-83d0f6d0da78 8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a; do
    grep -aqF "$declared" "$root/build/windows/Jotwright.exe" ||
        fail "the program's manifest does not declare $declared"
done
same "$(unzip -p "$name-portable.zip" Jotwright/Jotwright.exe | sha256sum)" \
    "$(sha256sum <"$root/build/windows/Jotwright.exe")" "the program in the archive"
for file in LICENSE THIRD-PARTY-NOTICES; do
    unzip -p "$name-portable.zip" "Jotwright/$file.txt" | tr -d '\r' | cmp - "$root/$file" ||
        fail "the archive does not contain $file"
done

# shellcheck source=scripts/package-tests/signing.sh
. "$root/scripts/package-tests/signing.sh"
