# shellcheck shell=bash
# shellcheck disable=SC2154   # scripts/test-package sets the variables
# Part of scripts/test-package: packages that are signed with a certificate of the test.
say "Signed packages"
openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj '/CN=Jotwright test' \
    -addext extendedKeyUsage=codeSigning -keyout "$temp/key.pem" -out "$temp/certificate.pem" 2>/dev/null
cat >"$temp/sign-in-place" <<'END'
#!/bin/sh
# usage: sign-in-place <folder with key and certificate> <file>
osslsigncode sign -key "$1/key.pem" -certs "$1/certificate.pem" -h sha256 -in "$2" -out "$2.signed" &&
    mv "$2.signed" "$2"
END
chmod +x "$temp/sign-in-place"
JOTWRIGHT_SIGN="'$temp/sign-in-place' '$temp'" "$root/scripts/package" --draft --no-build "$temp/signed" \
    >/dev/null 9>&-
cmp "$temp/signed/Jotwright-$version-draft-unsigned-SHA256SUMS" "$temp/packages"/*SUMS ||
    fail "the checksums without signatures differ from those of unsigned packages"
is_signed() {
    osslsigncode verify -CAfile "$temp/certificate.pem" -in "$1" >"$temp/verify.log" 2>&1 ||
        fail "$1 is not signed, see $(cat "$temp/verify.log")"
}
unzip -q "$temp/signed"/*portable.zip -d "$temp/signed"
is_signed "$temp/signed/Jotwright/Jotwright.exe"
is_signed "$temp/signed/Jotwright/JotwrightPortable.exe"
is_signed "$(echo "$temp/signed"/*setup.exe)"
in_wine "$(echo "$temp/signed"/*setup.exe)" /S "/D=$(windows_path "$temp/signed/installed")" ||
    fail "the signed installer: exit code $?"
is_signed "$temp/signed/installed/Jotwright.exe"
is_signed "$temp/signed/installed/Uninstall.exe"
in_wine "$temp/signed/installed/Uninstall.exe" /S || fail "the signed uninstaller: exit code $?"
expect "the end of the signed uninstaller" test ! -e "$temp/signed/installed"
