# Sourced by run and test: packages, locale and build, each costing nothing when all is there.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
as_root() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi; }

# Installs what packaging/apt.txt names, and the lists beside it that are named; a stamp of them says it was done on this
# machine.
packages() {
    local want stamp missing wanted lists=("$root/packaging/apt.txt") list
    for list in "$@"; do lists+=("$root/packaging/$list"); done
    want=$(cksum "${lists[@]}" /etc/debian_version /etc/hostname 2>/dev/null | cksum | cut -d' ' -f1)
    stamp="$root/build/.packages-$want"
    [ -e "$stamp" ] && return
    mkdir -p "$root/build"
    # A Node.js of another origin serves as well, and its package refuses Debian's beside it.
    wanted=$(grep -hv '^#' "${lists[@]}")
    command -v node >/dev/null && command -v npm >/dev/null && wanted=$(printf '%s\n' "$wanted" | grep -vxE 'nodejs|npm')
    missing=$(dpkg-query -W -f '${Status} ${Package}\n' $wanted 2>&1 | grep -v '^install ok installed ' || true)
    if [ -n "$missing" ]; then
        echo "installing packages (${lists[*]##*/})" >&2
        as_root apt-get update -qq >/dev/null
        # shellcheck disable=SC2086
        as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
            $wanted >"$root/build/apt.log" 2>&1 ||
            { tail -20 "$root/build/apt.log" >&2; exit 1; }
    fi
    : >"$stamp"
}

# The reader of DWG files: a library from npm, pinned by its lock file, beside our own script. Where it cannot be had the
# program builds and runs all the same, and says so when a DWG is to be read.
dwg_reader() {
    local from="$root/src/dwg/lettore" to="$root/build/lettore" stamp
    mkdir -p "$to"
    cp -u "$from"/*.mjs "$from"/package*.json "$to"
    stamp="$to/.lock-$(cksum <"$from/package-lock.json" | cut -d' ' -f1)"
    [ -e "$stamp" ] && return
    if (cd "$to" && npm ci --ignore-scripts --no-audit --no-fund --silent) >"$root/build/npm.log" 2>&1; then
        rm -f "$to"/.lock-*
        : >"$stamp"
    else
        echo "DWG files cannot be read here: npm did not bring the library (build/npm.log)" >&2
    fi
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
