# Sourced by run and test: packages, locale and build, each costing nothing when all is there.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
as_root() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi; }

# Installs what packaging/apt.txt names; a stamp of that list says it was done on this machine.
packages() {
    local want stamp missing
    want=$(cksum "$root/packaging/apt.txt" /etc/debian_version /etc/hostname 2>/dev/null | cksum | cut -d' ' -f1)
    stamp="$root/build/.packages-$want"
    [ -e "$stamp" ] && return
    mkdir -p "$root/build"
    # shellcheck disable=SC2046
    missing=$(dpkg-query -W -f '${Status} ${Package}\n' $(grep -v '^#' "$root/packaging/apt.txt") 2>&1 | grep -v '^install ok installed ' || true)
    if [ -n "$missing" ]; then
        echo "installing packages (packaging/apt.txt)" >&2
        as_root apt-get update -qq >/dev/null
        # shellcheck disable=SC2046
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
            $(grep -v '^#' "$root/packaging/apt.txt") >"$root/build/apt.log" 2>&1 ||
            { tail -20 "$root/build/apt.log" >&2; exit 1; }
    fi
    rm -f "$root"/build/.packages-*
    : >"$stamp"
}

# Configures once and builds what changed; quiet unless something is wrong.
build() {
    local preset=$1 dir="$root/build/$1"
    cd "$root"
    if [ ! -e "$dir/build.ninja" ]; then
        cmake --preset "$preset" >"$root/build/$preset.log" 2>&1 || { cat "$root/build/$preset.log" >&2; exit 1; }
    fi
    if [ "${CI:-}" ]; then
        ninja -C "$dir"
    else
        { ninja -C "$dir" --quiet || exit 1; } | { grep -v '^ninja: no work to do.$' || true; }
    fi
}

# One setup at a time in this tree; the lock is given back when the script ends or the program takes its place.
mkdir -p "$root/build"
exec 9>"$root/build/.lock"
flock 9
