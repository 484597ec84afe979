#!/bin/sh
# Takes the steps of packaging/Containerfile in a bare Debian tree instead of a container, prints the
# example there as the image's user, and compares the file with one of the build's. Tells how much the
# steps add to the tree. packaging/test-package.sh has made the package. Needs root and a mirror of Debian;
# exits with 77 where there is neither.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
export LC_ALL=C.UTF-8
# Files printed here and there have the same bytes.
export TZ=UTC0
epoch=SOURCE_DATE_EPOCH=1792000000

fail() {
    echo "The image fails: $*" >&2
    exit 1
}
skip() {
    echo "The image is not tested: $*"
    exit 77
}

[ "$(id -u)" -eq 0 ] || skip "a bare Debian tree takes root"
# What is mounted in the tree is mounted for this script only.
unshare --mount true 2>/dev/null || skip "a bare Debian tree takes mounts of its own"
[ "${1:-}" = mounting ] || exec unshare --mount "packaging/${0##*/}" mounting
packaging/install-packages.sh image
context=build/release/package
[ -n "$(find "$context" -name 'qfrbatch_*.deb')" ] || fail "packaging/test-package.sh makes its package"

work=$(mktemp -d)
tree=$work/tree
cleanUp() {
    umount "$tree/proc" 2>/dev/null || true
    rm -rf --one-file-system "$work"
}
trap cleanUp EXIT
trap 'exit 1' HUP INT TERM

# From where this machine has its own packages.
sources() {
    apt-get indextargets --format 'deb $(REPO_URI) $(RELEASE) $(COMPONENT)' 'Created-By: Packages' |
        grep -E ' bookworm(-updates|-security)? main$' >"$work/sources"
}
sources || {
    apt-get update -qq && sources
} || skip "apt knows no mirror"
mirror=$(awk '$3 == "bookworm" { print $2; exit }' "$work/sources")
# The slim image leaves out what nobody reads in a container.
mkdir -p "$tree/etc/dpkg/dpkg.cfg.d"
cat >"$tree/etc/dpkg/dpkg.cfg.d/slim" <<END
path-exclude /usr/share/doc/*
path-include /usr/share/doc/*/copyright
path-exclude /usr/share/lintian/*
path-exclude /usr/share/locale/*
path-exclude /usr/share/man/*
END
debootstrap --variant=minbase bookworm "$tree" "$mirror" >"$work/log" 2>&1 || {
    ! grep -q 'Failed getting release file' "$work/log" || skip "no answer from $mirror"
    cat "$work/log"
    fail "the bare tree cannot be made"
}
cp "$work/sources" "$tree/etc/apt/sources.list"
rm -rf "$tree"/var/lib/apt/lists/* "$tree"/var/cache/apt/*
mount -t proc proc "$tree/proc"

user=root
folder=/
entry=
# inTree COMMAND...: as the user, in the working directory.
inTree() {
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin TZ="$TZ" DEBIAN_FRONTEND=noninteractive \
        chroot --userspec="$user" "$tree" sh -c 'cd "$0" && exec "$@"' "$folder" "$@"
}
# The megabytes without what apt keeps for itself, and the packages.
megabytes() { du -sk --exclude=./proc --exclude=./var/cache/apt "$1" | awk '{ print $1 / 1024 }'; }
packages() { inTree dpkg-query --show | wc -l; }

bareMegabytes=$(cd "$tree" && megabytes .)
barePackages=$(packages)
# A step a line, without comments.
sed -e '/^#/d' -e ':join' -e '/\\$/{N; s/\\\n *//; b join' -e '}' packaging/Containerfile >"$work/steps"
while read -r step what; do
    case "$step" in
        FROM) [ "$what" = debian:12-slim ] || fail "the test knows no FROM $what" ;;
        COPY)
            # shellcheck disable=SC2086 # a pattern
            (cd "$context" && cp ${what% *} "$tree${what##* }")
            ;;
        RUN)
            inTree sh -c "$what" >"$work/log" 2>&1 </dev/null || {
                cat "$work/log"
                fail "RUN $what"
            }
            ;;
        USER) user=$what ;;
        WORKDIR)
            mkdir -p "$tree$what"
            folder=$what
            ;;
        ENTRYPOINT) entry=$(echo "$what" | sed -e 's/^\["//' -e 's/"\]$//' -e 's/", *"/ /g') ;;
        *) fail "the test knows no step $step" ;;
    esac
done <"$work/steps"
added=$(cd "$tree" && megabytes . | awk -v bare="$bareMegabytes" '{ printf "%.1f", $1 - bare }')
addedPackages=$(($(packages) - barePackages))

[ -n "$entry" ] && [ "$user" != root ] || fail "it has no command, or an administrator runs it"
# shellcheck disable=SC2086 # words
inTree env "$epoch" $entry print /usr/lib/qfrforms/example/example.qff -o /dev/stdout \
    >"$work/forms.pdf" 2>"$work/complaint" || fail "the example cannot be printed"
[ ! -s "$work/complaint" ] || fail "$(cat "$work/complaint")"
env "$epoch" build/release/bin/qfrbatch print example/example.qff -o "$work/expected.pdf"
cmp "$work/forms.pdf" "$work/expected.pdf" || fail "it does not print what the build prints"
# There is no CUPS, and the command says so.
# shellcheck disable=SC2086 # words
! inTree $entry print /usr/lib/qfrforms/example/example.qff --printer office 2>"$work/complaint" ||
    fail "it prints without CUPS"
grep -q 'there is no printer "office"' "$work/complaint" || fail "$(cat "$work/complaint")"

echo "The image adds $added MB and $addedPackages packages to the bare tree"
