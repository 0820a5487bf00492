#!/usr/bin/env bash
# Installs a built tree into a temporary prefix and checks what the desktop will read of it: the
# desktop entry, the AppStream metainfo and the MIME package validate, the MIME database maps "*.VT5"
# to Velto's type, both programs run, and the installed velto finds every file it ships.
# Usage: scripts/check-install.sh BUILD_DIR
set -euo pipefail
build=${1:?usage: check-install.sh BUILD_DIR}
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build" --prefix "$prefix" >/dev/null
share=$prefix/share
desktop-file-validate "$share/applications/de.kolvarin.Velto.desktop"
appstreamcli validate --no-net --pedantic "$share/metainfo/de.kolvarin.Velto.metainfo.xml" >/dev/null
xmllint --noout "$share/mime/packages/velto.xml"
update-mime-database "$share/mime" 2>/dev/null
grep -q 'application/x-velto-project:\*\.VT5' "$share/mime/globs2"
for size in 16 22 24 32 48 64 128 256; do
    test -s "$share/icons/hicolor/${size}x${size}/apps/velto.png"
done

"$prefix/bin/velto" --version | grep -q '^Velto '
"$prefix/bin/velto-cli" --version | grep -q '^velto-cli '
if "$prefix/bin/velto" --data-files | grep 'fehlt'; then
    echo "The installed Velto misses the files above." >&2
    exit 1
fi
echo "Install tree checked: $("$prefix/bin/velto" --version)"
