#!/bin/bash
# SPDX-FileCopyrightText: 2026 The fv2-agent authors
# SPDX-License-Identifier: Apache-2.0
#
# Shows in a Debian 12 tree of its own that a clone of the last commit can be built, installed, used and removed:
# builds the package twice, in folders of different names, and compares the two; installs it; runs debian/tests on a
# private desktop; purges it; lists what is left. Needs root, debootstrap and 3 GB; takes a quarter of an hour.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

TREE=$(mktemp -d /var/tmp/fv2-bookworm.XXXXXX)
readonly TREE
chmod 755 "$TREE" # other users are to find their way in
# What apt, dpkg and the linker's cache note for themselves, and where the proof itself works.
readonly NOT_OURS='^/(proc|sys|dev|tmp|run|src|other|root|var/(lib/(dpkg|apt|systemd)|cache|log|tmp)|etc/ld\.so\.cache)'

inside() {
    chroot "$TREE" /usr/bin/env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin LANG=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive "$@"
}

clean_up() {
    umount -R "$TREE/proc" "$TREE/dev" "$TREE/sys" 2>/dev/null || true
    rm -rf --one-file-system "$TREE"
}
trap clean_up EXIT

say() {
    printf '\n== %s\n' "$*"
}

files() {
    inside find / -xdev \( -type f -o -type l -o -type d \) | grep -vE "$NOT_OURS" | sort
}

say "a Debian 12 tree"
mirror=$(apt-get indextargets --format "\$(SITE)" "Created-By: Packages" | head -n 1)
debootstrap --variant=minbase --include=ca-certificates,git bookworm "$TREE" "$mirror" >"$TREE.log" 2>&1 ||
    { cat "$TREE.log"; exit 1; }
rm -f "$TREE.log"
rm -f "$TREE/etc/apt/sources.list"
cp -a /etc/apt/. "$TREE/etc/apt/"
cp -a /usr/local/share/ca-certificates/. "$TREE/usr/local/share/ca-certificates/" 2>/dev/null || true
cp /etc/resolv.conf /etc/hosts "$TREE/etc/"
mount -t proc proc "$TREE/proc"
mount --rbind /dev "$TREE/dev"
mount --make-rslave "$TREE/dev"
mount --rbind /sys "$TREE/sys"
mount --make-rslave "$TREE/sys"
inside update-ca-certificates >/dev/null 2>&1
for folder in src other; do
    git clone --quiet --no-local . "$TREE/$folder"
done
inside git config --global --add safe.directory '*'

say "two builds"
for folder in src other; do
    inside bash -c "cd /$folder && ./dev package" | tail -n 3
done
for deb in "$TREE"/src/build/package/*.deb; do
    cmp "$deb" "$TREE/other/build/package/$(basename "$deb")"
    sha256sum "$deb" | sed "s|$TREE||"
done

say "install"
inside bash -c 'cd /src && ./dev deps desktop && ./dev build' >/dev/null
files >"$TREE/tmp/before"
inside bash -c 'apt-get install -y --no-install-recommends /src/build/package/fv2-agent_*.deb' | tail -n 2

say "use"
inside bash -c 'cd /src && debian/tests/installed-agent'

say "purge"
inside apt-get purge -y --auto-remove fv2-agent | tail -n 2
files >"$TREE/tmp/after"
if left=$(comm -13 "$TREE/tmp/before" "$TREE/tmp/after") && [[ -n $left ]]; then
    printf 'files left:\n%s\n' "$left"
    exit 1
fi
echo "files left: none"
